// SPDX-License-Identifier: GPL-3.0-or-later
// The analysis of scripts and pages: runs in the pauses of typing; its findings are shown as a list under the
// text, as wavy lines and in the status row.
#include "app/application_qt.h"
#include "app/main_menu_qt.h"
#include "app/wiring_qt.h"
#include "desktop/text_qt.h"
#include "findings/analysis_schedule.h"
#include "findings/analysis_thread.h"
#include "findings/finding_marks_qt.h"
#include "findings/findings_commands.h"
#include "findings/findings_panel.h"
#include "settings/keys.h"
#include "settings/option_switch.h"

#include "editor/control_layout_qt.h"
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

namespace kevra {
namespace {

constexpr std::size_t maxInPage = 500;
constexpr int listRows = 12; ///< the height of the list, its buttons included

class FindingsWiring : public QObject, private FindingsView {
public:
    FindingsWiring(Application &app, WindowDocument &shown);

private:
    void bindCommands();
    void connectDocument();
    [[nodiscard]] bool analysesTyping() const
    {
        return kevra::analysesTyping(m_typing.isOn(), m_state.scriptTools, listShown());
    }
    void analyseLater();
    void analyseCopy();
    void toolsChanged();
    void setLevel(script::Level level);
    void showList(bool on);
    void makePanel();
    [[nodiscard]] bool listShown() const { return !m_frame.isHidden(); }
    void offerFixes();

    void showInPage();
    void showFindings() override;
    void showCurrent(std::size_t index) override;
    void showNote(std::string_view text) override { m_app.mainWindow().showNote(text); }
    void applyEdit(const LineEdit &edit) override { m_control.apply(edit); }

    Application &m_app;
    EditorControl &m_control;
    const DocumentState &m_state;
    QFrame &m_frame;
    FindingsCommands m_commands;
    FindingMarks m_marks;
    FindingsPanel *m_panel = nullptr; ///< owned by the frame, made when the list is first opened
    OptionSwitch m_typing;
    QTimer m_pause;
    std::string m_copy; ///< reused for the next copy of the text
    AnalysisThread m_thread; ///< last, so that it ends first
};

FindingsWiring::FindingsWiring(Application &app, WindowDocument &shown)
    : m_app(app)
    , m_control(shown.control)
    , m_state(shown.document.state)
    , m_frame(app.mainWindow().frame("frfindings"))
    , m_commands(m_control, *this, [this] { return placeOf(m_state); })
    , m_marks(m_control, m_commands.list())
    , m_typing(app.settingsStore, app.toolSets(), Option::AnalyseTyping, [this](bool) { toolsChanged(); })
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
    connect(&m_pause, &QTimer::timeout, this, &FindingsWiring::analyseCopy);
    bindCommands();
    connectDocument();
    m_typing.load();
    m_commands.setLevel(script::levelNamed(readSetting(app.settingsStore, keys::findingsLevel))
                            .value_or(script::Level::Hint));
}

void FindingsWiring::bindCommands()
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
    commands.bind("manalysetyping", [this] { m_typing.toggle(); });
    // With the web page tools their menu is hidden, which would disable their keys.
    for (const auto item : {"mfindings", "mnextfinding", "mprevfinding", "mfix"})
        m_app.mainWindow().addAction(m_app.mainWindow().menus().action(item));
}

void FindingsWiring::connectDocument()
{
    auto &window = m_app.mainWindow();
    connect(&m_control, &EditorControl::changed, this, [this](Offset position, Offset removed, Offset added) {
        m_commands.textChanged(position, removed, added);
        analyseLater();
    });
    connect(&window, &MainWindow::documentNamed, this, &FindingsWiring::analyseLater);
    connect(&window.statusRow(), &StatusRow::analysisChosen, this, [this] { showList(!listShown()); });
    connect(window.menus().menu("mdebug")->menuAction(), &QAction::visibleChanged, this,
        &FindingsWiring::toolsChanged);
}

void FindingsWiring::analyseLater()
{
    if (analysesTyping())
        m_pause.start(pauseBeforeAnalysis(m_control.TextLength()));
}

void FindingsWiring::analyseCopy()
{
    if (!analysesTyping())
        return;
    copyText(m_control, m_copy);
    m_thread.start({std::move(m_copy), placeOf(m_state), m_commands.revision()});
}

void FindingsWiring::toolsChanged()
{
    m_pause.stop();
    m_commands.forget();
    analyseLater();
}

void FindingsWiring::setLevel(script::Level level)
{
    m_commands.setLevel(level);
    writeSetting(m_app.settingsStore, keys::findingsLevel, script::levelName(level));
}

void FindingsWiring::makePanel()
{
    // Bounded, so that the text does not move for a longer explanation.
    m_frame.setMaximumHeight(listRows * m_frame.fontMetrics().lineSpacing());
    m_panel = new FindingsPanel(m_frame, m_commands);
    m_panel->setLevel(m_commands.list().level());
    connect(m_panel, &FindingsPanel::levelChosen, this, &FindingsWiring::setLevel);
    connect(m_panel, &FindingsPanel::closeRequested, this, [this] { showList(false); });
    connect(m_panel, &FindingsPanel::textRequested, this, [this] { m_control.SetFocus(); });
}

void FindingsWiring::showList(bool on)
{
    if (on && !m_panel)
        makePanel();
    if (on)
        m_commands.listOpened();
    const bool hadFocus = m_frame.isAncestorOf(QApplication::focusWidget());
    m_frame.setVisible(on);
    m_app.mainWindow().setItemChecked("mfindings", on);
    m_app.mainWindow().arrange();
    showInPage();
    if (on)
        m_panel->refill();
    else if (hadFocus)
        m_control.SetFocus();
}

void FindingsWiring::offerFixes()
{
    const auto offered = m_commands.fixesAtCaret();
    if (offered.empty())
        return showNote("No fix here.");
    auto *menu = new QMenu(&m_control);
    menu->setObjectName("mpopfix");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto &fix : offered) {
        const auto &title = m_commands.list().at(fix.finding).fixes[fix.fix].title;
        menu->addAction(textOf(title).replace("&", "&&"), this, [this, fix] { m_commands.applyFix(fix); });
    }
    menu->setActiveAction(menu->actions().front());
    const auto place = ControlLayout(m_control).bottomLeft(m_control.SelStart());
    menu->popup(m_control.viewport()->mapToGlobal(place));
}

void FindingsWiring::showFindings()
{
    m_app.mainWindow().statusRow().setAnalysis(textOf(m_commands.list().summary()));
    m_marks.refresh();
    showInPage();
    if (listShown())
        m_panel->refill();
}

void FindingsWiring::showInPage()
{
    if (!m_app.outlineBroken)
        return;
    m_app.outlineBroken(m_commands.list().firstPlaces(listShown() ? maxInPage : 0));
}

void FindingsWiring::showCurrent(std::size_t index)
{
    if (listShown())
        m_panel->selectRow(index);
}

} // namespace

void wireFindings(Application &app, WindowDocument &shown)
{
    app.keep<FindingsWiring>(app, shown);
}

} // namespace kevra
