// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/disk_changes_qt.h"
#include "app/wiring_qt.h"
#include "colour/document_colouring.h"
#include "desktop/end_signals_qt.h"
#include "desktop/text_qt.h"
#include "document/disk_notice.h"
#include "document/encoding_commands.h"
#include "document/encoding_dialog.h"
#include "document/file_status.h"
#include "document/leave_text.h"
#include "document/notice_bar_panel.h"
#include "document/open_commands.h"
#include "document/recovery_details.h"
#include "document/recovery_list_dialog.h"
#include "document/recovery_offer.h"
#include "document/save_commands.h"
#include "document/text_changes.h"

#include <QtGui/QSessionManager>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <iterator>

namespace kevra {

namespace {

using namespace std::chrono_literals;

constexpr auto statusDelay = 200ms;

/// The commands and bars for the document's file; lives as long as the windows.
class FilesWiring : public QObject, private ReviewView, private RecoveryList, private SessionFiles {
public:
    FilesWiring(Application &app, WindowDocument &shown);

private:
    void bindCommands();
    void watchDocument();
    void watchDisk();
    void watchEnd();
    void watchEncoding();
    void chooseEncoding(const QString &title, void (EncodingCommands::*command)(Encoding));
    [[nodiscard]] FileStatus status();
    void showDiskState();
    void showRecordState();
    void showPassedOver();

    void openFromCommandLine(const std::string &commandLine) override;
    void offerRecovery() override;
    void saveAs() override { m_saving.saveAs(); }
    void textGivenUp() override { m_journal.textGivenUp(); }
    bool keepUnsavedText() override;
    void keepForNextStart() override { std::ignore = m_journal.keepForNextStart(); }
    void removePreviewPage() override;
    void removeAutosave() override { m_records.removeAutosave(m_document.state.autosaveWritten); }

    void showReview(const std::string &description) override;
    void endReview() override;
    RecoveryAnswer choose(std::span<const RecoveryRow> rows) override;
    void endList() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    Application &m_app;
    EditorControl &m_control;
    Document &m_document;
    RecoveryStorePosix &m_records;
    RecoveryJournal &m_journal;
    FileCommandPorts m_ports;
    DocumentColouring m_colouring;
    SaveCommands m_saving;
    OpenCommands m_opening;
    EncodingCommands m_encoding;
    TextChanges m_changes;
    RecoveryOffer m_offer;
    NoticeBar &m_reviewBar; ///< owned by the window, like all bars
    NoticeBar &m_recordBar;
    NoticeBar &m_passedOverBar;
    QTimer m_recordTimer;
    QTimer m_statusTimer;
    DiskNotice m_notice;
    DiskChangesQt m_disk;
    std::unique_ptr<EndSignalsQt> m_signals;
    RecoveryListDialog *m_recoveryList = nullptr; ///< owned by the window, made on first use
};

FilesWiring::FilesWiring(Application &app, WindowDocument &shown)
    : m_app(app)
    , m_control(shown.control)
    , m_document(shown.document)
    , m_records(shown.recovery)
    , m_journal(m_document.journal)
    , m_ports{m_document, app.applicationState, app.files, app.backups, app.fileDialogs, app.messages,
          app.mainWindow(), app.toolSets()}
    , m_colouring(m_document)
    , m_saving(m_ports)
    , m_opening(m_ports, m_saving, m_colouring)
    , m_encoding(m_ports, m_opening,
          [this](TextRange range, std::string_view text) { m_control.replaceAsUser(range, text); })
    , m_changes(m_document, m_encoding)
    , m_offer(m_ports, m_saving, m_opening, m_journal, m_records, *this, *this)
    , m_reviewBar(*new NoticeBar("reviewbar", "Text from the last session", app.mainWindow(),
          {{"breviewsave", "&Save As...", "Save this text under a name", [this] { m_offer.saveReviewed(); }},
              {"breviewdiscard", "&Discard", "This text is not wanted",
                  [this] { m_offer.discardReviewed(); }},
              {"breviewlater", "Decide &Later", "Keep this text until the next start",
                  [this] { m_offer.leaveReviewed(); }}}))
    , m_recordBar(*new NoticeBar("recordbar", "Unsaved text", app.mainWindow(),
          {{"brecordsave", "Save &As...", "Save the text in another place",
              [this] { m_saving.saveAsMenu(); }}}))
    , m_passedOverBar(*new NoticeBar("passedoverbar", "Files passed over", app.mainWindow(),
          {{"bpassedoverclose", "C&lose", "Take this note away", [this] { m_passedOverBar.hide(); }}}))
    , m_notice(m_document.file)
    , m_disk(app, m_ports, m_opening, m_colouring)
{
    bindCommands();
    app.setSessionFiles(*this);
    shown.recordOutcomeChanged = [this] { showRecordState(); };
    m_saving.onAutosaveStale([this] { removeAutosave(); });
    m_saving.onPreviewPageStale([this] { removePreviewPage(); });
    watchDocument();
    watchEncoding();
    watchDisk();
    watchEnd();
}

void FilesWiring::bindCommands()
{
    auto &commands = m_app.commands;
    commands.bind("mnewfile", [this] { m_opening.newFile(); });
    commands.bind("mopenfile", [this] { m_opening.openWithDialog(); });
    commands.bind("mtemplate", [this] { m_opening.startWithTemplate(assetPath("template.html")); });
    commands.bind("msaveplain", [this] { m_offer.save(); });
    commands.bind("msaveas", [this] { m_offer.saveAs(); });
    m_opening.offerDroppedTo(
        [this](const std::string &path) { return m_app.takesDroppedFile && m_app.takesDroppedFile(path); });
    connect(&m_app.mainWindow(), &MainWindow::fileDropped, this,
        [this](const std::string &path) { m_opening.openDropped(path); });
    connect(&m_app.mainWindow(), &MainWindow::listedFileChosen, this,
        [this](const std::string &path) { m_opening.openListed(path); });
}

void FilesWiring::openFromCommandLine(const std::string &commandLine)
{
    m_opening.openFromCommandLine(commandLine);
}

void FilesWiring::offerRecovery()
{
    showPassedOver();
    m_offer.offer();
}

bool FilesWiring::keepUnsavedText()
{
    return mayLeaveText(m_journal, m_app.messages, [this] { return m_saving.saveAs(); });
}

void FilesWiring::removePreviewPage()
{
    if (m_app.removePreviewPage)
        m_app.removePreviewPage();
}

void FilesWiring::watchDocument()
{
    m_recordTimer.setSingleShot(true);
    m_recordTimer.setInterval(RecoveryJournal::recordDelay);
    m_statusTimer.setSingleShot(true);
    m_statusTimer.setInterval(statusDelay);
    auto &window = m_app.mainWindow();
    window.setStatusSource([this] { return status(); });
    const auto changed = [this](Offset position, Offset removed, Offset added) {
        if (!m_changes.changed(position, removed, added))
            return;
        if (!m_recordTimer.isActive())
            m_recordTimer.start();
        if (!m_statusTimer.isActive())
            m_statusTimer.start();
    };
    connect(&m_control, &EditorControl::changed, this, changed);
    connect(&m_control, &EditorControl::aboutToRemove, this,
        [this](Offset, Offset length) { m_changes.aboutToRemove(length); });
    connect(&m_recordTimer, &QTimer::timeout, this, [this] { m_journal.writeDown(); });
    connect(&m_statusTimer, &QTimer::timeout, &window, &MainWindow::refreshDocumentStatus);
    connect(&m_app.timer1, &QTimer::timeout, this, [this] { m_journal.autosave(); });
    window.refreshDocumentStatus();
}

FileStatus FilesWiring::status()
{
    // A save may have made the notice obsolete.
    if (m_notice.isCurrent())
        showDiskState();
    m_disk.documentMayHaveChanged();
    return fileStatus(m_document, m_encoding, m_offer, m_notice);
}

void FilesWiring::watchEncoding()
{
    auto &row = m_app.mainWindow().statusRow();
    connect(&row, &StatusRow::reopenChosen, this,
        [this] { chooseEncoding("Reopen in Another Encoding", &EncodingCommands::reopenAs); });
    connect(&row, &StatusRow::saveAsChosen, this,
        [this] { chooseEncoding("Save in Another Encoding", &EncodingCommands::saveAs); });
    connect(&row, &StatusRow::markChosen, this, [this](bool on) { m_encoding.setMark(on); });
    connect(&row, &StatusRow::lineEndsChosen, this, [this](LineEnds ends) { m_encoding.setLineEnds(ends); });
    connect(&row, &StatusRow::offerTaken, this, [this] { m_encoding.declareEncoding(); });
}

void FilesWiring::chooseEncoding(const QString &title, void (EncodingCommands::*command)(Encoding))
{
    EncodingDialog dialog(title, m_encoding.status().format.encoding, &m_app.mainWindow());
    if (dialog.exec() == QDialog::Accepted && dialog.chosen())
        (m_encoding.*command)(*dialog.chosen());
}

void FilesWiring::watchDisk()
{
    connect(&m_disk, &DiskChangesQt::fileTouched, this, [this] {
        showDiskState();
        m_disk.check();
        m_app.mainWindow().refreshDocumentStatus();
    });
    m_app.mainWindow().installEventFilter(this);
}

bool FilesWiring::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::WindowActivate) {
        showDiskState();
        m_disk.check();
        m_app.mainWindow().refreshDocumentStatus();
    }
    return QObject::eventFilter(watched, event);
}

void FilesWiring::showDiskState()
{
    auto &window = m_app.mainWindow();
    if (const auto text = m_notice.next(window.information().toStdString()))
        window.setInformation(*text);
}

void FilesWiring::showRecordState()
{
    const auto text = recordNotice(m_records.recordOutcome());
    text.empty() ? m_recordBar.hide() : m_recordBar.showText(text);
}

void FilesWiring::showPassedOver()
{
    auto files = m_records.passedOver();
    std::ranges::copy(m_app.settingsStore.passedOver(), std::back_inserter(files));
    const auto text = passedOverNotice(files);
    if (!text.empty())
        m_passedOverBar.showText(text);
}

void FilesWiring::watchEnd()
{
    m_signals = std::make_unique<EndSignalsQt>(
        [this] { m_app.quit().endAtSignal(); }, [this] { m_journal.writeDownAtCrash(); });
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] {
        m_journal.writeDown();
        m_records.finish();
    });
}

void FilesWiring::showReview(const std::string &description)
{
    m_reviewBar.showText(description);
    m_control.setReadOnly(true);
    m_app.mainWindow().refreshDocumentStatus();
}

void FilesWiring::endReview()
{
    m_reviewBar.hide();
    m_control.setReadOnly(false);
    m_app.mainWindow().refreshDocumentStatus();
}

RecoveryAnswer FilesWiring::choose(std::span<const RecoveryRow> rows)
{
    if (!m_recoveryList)
        m_recoveryList = new RecoveryListDialog(&m_app.mainWindow());
    return m_recoveryList->choose(rows);
}

void FilesWiring::endList()
{
    if (m_recoveryList)
        m_recoveryList->endList();
}

} // namespace

void wireFiles(Application &app, WindowDocument &shown)
{
    app.keep<FilesWiring>(app, shown);
}

} // namespace kevra
