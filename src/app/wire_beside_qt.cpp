// SPDX-License-Identifier: GPL-3.0-or-later
// The page beside the text. Nothing of it is made before it is first opened.
#include "app/application_qt.h"
#include "app/main_menu_qt.h"
#include "app/wiring_qt.h"
#include "beside/beside_commands.h"
#include "beside/beside_control_qt.h"
#include "beside/beside_panel.h"
#include "beside/dock_width_qt.h"
#include "beside/page_text_thread.h"
#include "desktop/process_start_qt.h"
#include "desktop/text_qt.h"
#include "editor/control_layout_qt.h"
#include "editor/reveal_qt.h"
#include "preview/request_rules.h"
#include "settings/keys.h"
#include "settings/option_switch.h"
#include "text/paths.h"

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtWidgets/QMenu>

#include <charconv>

namespace kevra {
namespace {

constexpr std::chrono::milliseconds timeToAppear{300}; ///< of the recreated window
constexpr auto untitledPage = "untitled.html"; ///< an address for a text that has no file yet

class BesideWiring : public QObject, private BesidePage, private BesideDocument {
public:
    BesideWiring(Application &app, WindowDocument &shown);

private:
    void setOpen(bool on);
    void makeDock();
    void connectPanel();
    void connectControl();
    void connectDocument();
    void updateDocument();
    void openInBrowser();
    void keepWindowPlace();

    bool load(const std::string &path, std::shared_ptr<const PageText> page) override;
    void reload(std::shared_ptr<const PageText> page) override;
    void unload() override;
    void ask(const std::string &call) override { m_control->ask(call); }
    void showNote(BesideNote kind, std::string_view text) override { m_panel->showNote(kind, textOf(text)); }
    bool startBrowser(const std::string &path) override;

    void prepare(PageTextRequest request) override;
    void startTimer(std::chrono::milliseconds time) override { m_pause.start(time); }
    Offset caret() const override { return m_document.Selection().start; }
    void selectText(TextRange range) override;

    Application &m_app;
    const DocumentState &m_state;
    const DocumentFile &m_file;
    EditorControl &m_document;
    BesideCommands m_commands;
    BesidePanel *m_panel = nullptr; ///< the window's
    std::unique_ptr<BesideControlQt> m_control;
    QTimer m_pause;
    OptionSwitch m_switch;
    PageTextThread m_thread; ///< ends first: it reports here
};

BesideWiring::BesideWiring(Application &app, WindowDocument &shown)
    : m_app(app)
    , m_state(shown.document.state)
    , m_file(shown.document.file)
    , m_document(shown.control)
    , m_commands(*this, *this)
    , m_switch(app.settingsStore, app.toolSets(), Option::PageBeside, [this](bool on) { setOpen(on); })
    , m_thread([this](std::shared_ptr<const PageText> page) {
        QMetaObject::invokeMethod(
            this, [this, page = std::move(page)] { m_commands.prepared(page); }, Qt::QueuedConnection);
    })
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, [this] { m_commands.pauseOver(); });
    app.outlineBroken = [this](const std::vector<Offset> &places) { m_commands.outlineBroken(places); };
    app.commands.bind("mbeside", [this] { m_switch.toggle(); });
    // After the first picture: the engine is not what a start waits for.
    const auto openStored = [this] {
        if (!m_switch.isOn())
            m_switch.load();
    };
    if (storedOption(app.settingsStore, Option::PageBeside))
        connect(&app.mainWindow(), &MainWindow::placed, this, openStored, Qt::SingleShotConnection);
}

void BesideWiring::setOpen(bool on)
{
    if (on && !m_panel)
        makeDock();
    m_panel->setVisible(on);
    if (!on) {
        m_commands.close();
        return m_document.SetFocus();
    }
    updateDocument();
    m_commands.open();
}

void BesideWiring::makeDock()
{
    auto &window = m_app.mainWindow();
    m_panel = new BesidePanel(&window);
    m_panel->hide();
    m_control = std::make_unique<BesideControlQt>(m_panel->frame());
    window.addDockWidget(Qt::RightDockWidgetArea, m_panel);
    window.addFocusPart(*m_panel);
    int width = 0;
    const auto stored = readSetting(m_app.settingsStore, keys::besideWidth);
    std::from_chars(stored.data(), stored.data() + stored.size(), width);
    connect(new DockWidth(window, *m_panel, width), &DockWidth::chosen, this,
        [this](int now) { writeSetting(m_app.settingsStore, keys::besideWidth, std::to_string(now)); });
    connectPanel();
    connectControl();
    connectDocument();
}

void BesideWiring::connectPanel()
{
    connect(m_panel, &BesidePanel::closed, this, [this] { m_switch.toggle(); });
    connect(m_panel, &BesidePanel::reloadAsked, this, [this] { m_commands.reload(); });
    connect(m_panel, &BesidePanel::stopAsked, this, [this] { m_commands.stop(); });
    connect(m_panel, &BesidePanel::browserAsked, this, &BesideWiring::openInBrowser);
    connect(m_panel, &BesidePanel::darkChosen, m_control.get(), &BesideControlQt::setDark);
    connect(m_panel, &BesidePanel::scaleChanged, m_control.get(), &BesideControlQt::setZoomFactor);
}

void BesideWiring::connectControl()
{
    auto *control = m_control.get();
    connect(control, &BesideControlQt::answered, this,
        [this](const QString &answer) { m_commands.answered(answer.toStdString()); });
    connect(control, &BesideControlQt::answerOverdue, this, [this] { m_commands.answerOverdue(); });
    connect(control, &BesideControlQt::messageReceived, this,
        [this](const QString &message) { m_commands.pageMessage(message.toStdString()); });
    connect(control, &BesideControlQt::ended, this, [this] { m_commands.pageEnded(); });
    connect(control, &BesideControlQt::alerted, m_panel, [this](const QString &message) {
        m_panel->showNote(BesideNote::Alert, "The page says: " + message);
    });
    connect(control, &BesideControlQt::partRefused, m_panel, [this] {
        m_panel->showNote(
            BesideNote::Refused, "Parts on the web, or outside of the page's folder and site, are left out.");
    });
    connect(control, &BesideControlQt::linkFollowed, m_panel, &BesidePanel::setLinkTarget);
    connect(control, &BesideControlQt::zoomAsked, m_panel, &BesidePanel::zoomBy);
}

void BesideWiring::connectDocument()
{
    auto &window = m_app.mainWindow();
    connect(&m_document, &EditorControl::changed, this, [this] { m_commands.textChanged(); });
    connect(&m_document, &EditorControl::caretMoved, this, [this] { m_commands.caretMoved(); });
    // Its note is about what was asked of it before.
    connect(&m_document, &EditorControl::changed, m_panel,
        [this] { m_panel->showNote(BesideNote::Browser, {}); });
    connect(&window, &MainWindow::documentNamed, this, &BesideWiring::updateDocument);
    connect(window.menus().menu("mdebug")->menuAction(), &QAction::visibleChanged, this,
        &BesideWiring::updateDocument);
}

void BesideWiring::updateDocument()
{
    auto path = m_app.mainWindow().titlePath();
    if (path.empty()) {
        const auto &folder = m_app.applicationState.tempFolder;
        path = (m_app.files.folderExists(folder) ? folder : documentsFolder()) + '/' + untitledPage;
    }
    m_commands.setDocument(path, !m_state.scriptTools);
}

bool BesideWiring::load(const std::string &path, std::shared_ptr<const PageText> page)
{
    const auto scope = scopeOf(std::string(parentFolder(path)), m_app.files, pathBytes(QDir::homePath()));
    const bool first = !m_control->widget();
    if (first)
        keepWindowPlace();
    if (!m_control->load(path, scope, std::move(page)))
        return false;
    if (first)
        m_panel->setPageWidget(m_control->widget());
    m_panel->showPage(true);
    if (!m_control->isSandboxed())
        m_panel->showNote(BesideNote::Sandbox, "The page is shown without the browser's sandbox");
    return true;
}

void BesideWiring::reload(std::shared_ptr<const PageText> page)
{
    for (const auto ofLoad : {BesideNote::Alert, BesideNote::Refused})
        m_panel->showNote(ofLoad, {});
    m_control->reload(std::move(page));
}

/// The engine's first view recreates the native window, which forgets that it was maximised and where it
/// stood.
void BesideWiring::keepWindowPlace()
{
    auto &window = m_app.mainWindow();
    QTimer::singleShot(
        timeToAppear, &window, [&window, states = window.QWidget::windowState(), place = window.pos()] {
            window.setWindowState(states & ~Qt::WindowMaximized);
            if (states & Qt::WindowMaximized)
                window.setWindowState(states);
            else
                window.move(place);
        });
}

void BesideWiring::unload()
{
    m_panel->showPage(false);
    m_panel->setLinkTarget({});
    for (const auto ofPage :
        {BesideNote::Alert, BesideNote::Browser, BesideNote::Refused, BesideNote::Sandbox})
        m_panel->showNote(ofPage, {});
    m_control->unload();
}

void BesideWiring::prepare(PageTextRequest request)
{
    std::string copy;
    copyText(m_document, copy);
    m_thread.start(std::move(copy), std::move(request));
}

void BesideWiring::selectText(TextRange range)
{
    if (!range.empty())
        return goTo(m_document, range);
    m_document.Select(range);
    revealCaret(m_document);
}

void BesideWiring::openInBrowser()
{
    const auto &path = m_state.currentPath;
    // A text typed and taken back is the file's, although its undo history is another one.
    const bool saved = m_file.mayHold(static_cast<std::size_t>(m_document.TextLength()))
        && m_file.holds(m_document.Text());
    m_commands.openInBrowser(m_app.files.fileExists(path) ? path : std::string(), saved);
}

bool BesideWiring::startBrowser(const std::string &path)
{
    const auto opener = QStandardPaths::findExecutable("xdg-open");
    return !opener.isEmpty() && ProcessStartQt::start(pathBytes(opener), path);
}

} // namespace

void wireBeside(Application &app, WindowDocument &shown)
{
    app.keep<BesideWiring>(app, shown);
}

} // namespace kevra
