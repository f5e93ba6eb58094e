// SPDX-License-Identifier: GPL-3.0-or-later
// What the analysis says of a script or a page: asked for in the pauses of typing, shown
// under the text, as wavy lines and in the status row. It writes nothing but
// the fixes the user takes.
#include "app/application_qt.h"
#include "app/main_menu_qt.h"
#include "app/wiring_qt.h"
#include "desktop/text_qt.h"
#include "findings/analysis_thread.h"
#include "findings/finding_marks_qt.h"
#include "findings/findings_commands.h"
#include "findings/findings_panel.h"
#include "settings/keys.h"
#include "settings/options.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include <array>
#include <chrono>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

constexpr std::chrono::milliseconds pauseInTyping{300};
constexpr std::chrono::milliseconds longerPause{1000}; ///< before a text is copied that takes long to analyse
constexpr Offset longText = 1 << 20;
constexpr std::size_t mostInPage = 500;
constexpr int listRows = 12; ///< the height of the list, its buttons included

constexpr std::array levels{script::Level::Error, script::Level::Warning, script::Level::Hint};

script::Level levelNamed(std::string_view name)
{
    const auto found = std::ranges::find(levels, name, script::levelName);
    return found == levels.end() ? script::Level::Hint : *found;
}

class FindingsSide : public QObject, private FindingsView {
public:
    explicit FindingsSide(Application &app);

private:
    void bindCommands();
    void connectDocument();
    [[nodiscard]] bool analysesTyping() const;
    void analyseLater();
    void analyseCopy();
    void toolsChanged();
    void setAnalyseTyping(bool on);
    void setLevel(script::Level level);
    void showList(bool on);
    void makePanel();
    [[nodiscard]] bool listShown() const { return !m_frame.isHidden(); }
    void offerFixes();

    void showInPage();
    void showFindings() override;
    void showCurrent(std::size_t index) override;
    void tell(std::string_view text) override { m_app.mainWindow().tell(text); }
    void applyEdit(const LineEdit &edit) override { m_document.apply(edit); }

    Application &m_app;
    EditorControl &m_document;
    QFrame &m_frame;
    FindingsCommands m_commands;
    FindingMarks m_marks;
    FindingsPanel *m_panel = nullptr; ///< the frame's, once the list has been opened
    bool m_analyseTyping = true;
    QTimer m_pause;
    std::string m_copy; ///< memory for the next copy of the text
    AnalysisThread m_thread; ///< ends first: it reports here
};

FindingsSide::FindingsSide(Application &app)
    : m_app(app)
    , m_document(app.mainWindow().document())
    , m_frame(app.mainWindow().frame("frfindings"))
    , m_commands(m_document, *this, [this] { return placeOf(m_app.document.state); })
    , m_marks(m_document, m_commands.list())
    , m_thread([this](AnalysisThread::Request request, std::vector<script::Finding> findings) {
        QMetaObject::invokeMethod(
            this,
            [this, request = std::move(request), findings = std::move(findings)]() mutable {
                m_copy = std::move(request.text);
                m_commands.accept(std::move(findings), request.revision);
            },
            Qt::QueuedConnection);
    })
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &FindingsSide::analyseCopy);
    bindCommands();
    connectDocument();
    setAnalyseTyping(storedOption(app.store, Option::AnalyseTyping));
    m_commands.setLevel(levelNamed(readSetting(app.store, keys::findingsLevel)));
}

void FindingsSide::bindCommands()
{
    auto &commands = m_app.commands;
    commands.bind("mfindings", [this] { showList(!listShown()); });
    commands.bind("mnextfinding", [this] { m_commands.goToNext(); });
    commands.bind("mprevfinding", [this] { m_commands.goToPrevious(); });
    commands.bind("mfix", [this] { offerFixes(); });
    commands.bind("manalyse", [this] {
        m_commands.analyseNow();
        showList(true);
    });
    commands.bind("manalysetyping", [this] {
        setAnalyseTyping(!m_analyseTyping);
        storeOption(m_app.store, Option::AnalyseTyping, m_analyseTyping);
    });
    // With the web page tools the menu that holds them is hidden, and their keys
    // with it.
    for (const auto item : {"mfindings", "mnextfinding", "mprevfinding", "mfix"})
        m_app.mainWindow().addAction(m_app.mainWindow().menus().action(item));
}

void FindingsSide::connectDocument()
{
    auto &window = m_app.mainWindow();
    connect(
        &m_document, &EditorControl::changed, this, [this](Offset position, Offset removed, Offset added) {
            m_commands.textChanged(position, removed, added);
            analyseLater();
        });
    connect(&window, &MainWindow::documentNamed, this, &FindingsSide::analyseLater);
    connect(&window.statusRow(), &StatusRow::analysisChosen, this, [this] { showList(!listShown()); });
    connect(window.menus().menu("mdebug")->menuAction(), &QAction::visibleChanged, this,
        &FindingsSide::toolsChanged);
}

/// A page only while its findings are looked at.
bool FindingsSide::analysesTyping() const
{
    return m_analyseTyping && (m_app.document.state.scriptTools || listShown());
}

void FindingsSide::analyseLater()
{
    if (analysesTyping())
        m_pause.start(m_document.Length() > longText ? longerPause : pauseInTyping);
}

void FindingsSide::analyseCopy()
{
    if (!analysesTyping())
        return;
    // In two parts, so that the control need not move its gap, which is where the typing goes on.
    const auto gap = m_document.textPosition(m_document.SendScintilla(Sci::SCI_GETGAPPOSITION));
    m_copy.assign(m_document.Text({0, gap}));
    m_copy.append(m_document.Text({gap, m_document.Length()}));
    m_thread.start({std::move(m_copy), placeOf(m_app.document.state), m_commands.revision()});
}

void FindingsSide::toolsChanged()
{
    m_pause.stop();
    m_commands.forget();
    analyseLater();
}

void FindingsSide::setAnalyseTyping(bool on)
{
    m_analyseTyping = on;
    m_app.toolSets().showOption(Option::AnalyseTyping, on);
    toolsChanged();
}

void FindingsSide::setLevel(script::Level level)
{
    m_commands.setLevel(level);
    writeSetting(m_app.store, keys::findingsLevel, script::levelName(level));
}

void FindingsSide::makePanel()
{
    // Bounded: the text must not move when a finding has more to say than the one
    // before.
    m_frame.setMaximumHeight(listRows * m_frame.fontMetrics().lineSpacing());
    m_panel = new FindingsPanel(m_frame, m_commands);
    m_panel->setLevel(m_commands.list().level());
    connect(m_panel, &FindingsPanel::levelChosen, this, &FindingsSide::setLevel);
    connect(m_panel, &FindingsPanel::closeWanted, this, [this] { showList(false); });
    connect(m_panel, &FindingsPanel::textWanted, this, [this] { m_document.SetFocus(); });
}

void FindingsSide::showList(bool on)
{
    if (on && !m_panel)
        makePanel();
    if (on && !m_commands.list().known())
        m_commands.analyseNow();
    const bool hadFocus = m_frame.isAncestorOf(QApplication::focusWidget());
    m_frame.setVisible(on);
    m_app.mainWindow().setItemChecked("mfindings", on);
    m_app.mainWindow().layOut();
    if (on)
        m_panel->refill();
    else if (hadFocus)
        m_document.SetFocus();
}

void FindingsSide::offerFixes()
{
    const auto offered = m_commands.fixesAtCaret();
    if (offered.empty())
        return tell("No fix here.");
    auto *menu = new QMenu(&m_document);
    menu->setObjectName("mpopfix");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto &fix : offered) {
        const auto &title = m_commands.list().at(fix.finding).fixes[fix.fix].title;
        menu->addAction(textOf(title).replace("&", "&&"), this, [this, fix] { m_commands.applyFix(fix); });
    }
    menu->setActiveAction(menu->actions().front());
    const auto place = m_document.bottomLeftOf(m_document.SelStart());
    menu->popup(m_document.viewport()->mapToGlobal(place));
}

void FindingsSide::showFindings()
{
    m_app.mainWindow().statusRow().setAnalysis(textOf(m_commands.list().summary()));
    m_marks.refresh();
    showInPage();
    if (listShown())
        m_panel->refill();
}

void FindingsSide::showInPage()
{
    if (!m_app.showBrokenInPage)
        return;
    std::vector<Offset> places;
    const auto count = std::min(m_commands.list().size(), mostInPage);
    for (std::size_t i = 0; i < count; ++i)
        places.push_back(m_commands.list().at(i).range.start);
    m_app.showBrokenInPage(places);
}

void FindingsSide::showCurrent(std::size_t index)
{
    if (listShown())
        m_panel->select(index);
}

} // namespace

void wireFindings(Application &app)
{
    app.keep<FindingsSide>(app);
}

} // namespace kevra
