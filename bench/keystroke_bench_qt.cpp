// SPDX-License-Identifier: GPL-3.0-or-later
// CPU of one keystroke, from the key event to the painted line, in the middle of a small and a large
// document, in both tool sets, against a bare Scintilla control that has no accessibility to serve. Prints
// p50 and p99 in microseconds. "analysed" is a script with findings that follow the typing and are marked in
// view.
//   QT_QPA_PLATFORM=offscreen build/release/bin/keystroke_bench [KEYS [KILOBYTES [bare|page|script|analysed
//   [KEY]]]]
#include "colour/document_colouring.h"
#include "colour/typing_colouring.h"
#include "editor/editor_control_qt.h"
#include "fakes/document_state.h"
#include "findings/finding_marks_qt.h"
#include "findings/findings_commands.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace {

using namespace kevra;
using Sci = QsciScintillaBase;

constexpr std::string_view pageLine
    = "<p class=\"row\"><b>Opening hours</b> <i>Monday</i> to <a href=\"x.htm\">Friday</a></p>\r\n";
constexpr std::string_view scriptLine
    = "If total = 1 Then MsgBox \"The shop is closed\" & day '-- hours\r\nSet fso = CreateObject(name)\r\n";

std::string filled(std::string_view line, std::size_t size)
{
    std::string text;
    while (text.size() < size)
        text += line;
    return text;
}

/// Nothing for the library to keep up to date.
class Bare : public Sci {
public:
    Bare()
    {
        QAccessible::installFactory([](const QString &name, QObject *object) -> QAccessibleInterface * {
            auto *bare = name == QLatin1String("QsciScintillaBase") ? dynamic_cast<Bare *>(object) : nullptr;
            return bare ? new QAccessibleWidget(bare) : nullptr;
        });
        SendScintilla(SCI_SETMODEVENTMASK, 0UL);
        SendScintilla(SCI_SETCODEPAGE, static_cast<unsigned long>(SC_CP_UTF8));
        SendScintilla(SCI_SETLAYOUTCACHE, static_cast<unsigned long>(SC_CACHE_PAGE));
        SendScintilla(SCI_STYLESETFONT, static_cast<unsigned long>(STYLE_DEFAULT), "Courier New");
        SendScintilla(SCI_STYLESETSIZE, static_cast<unsigned long>(STYLE_DEFAULT), 10L);
        SendScintilla(SCI_STYLECLEARALL);
        connect(this, &Sci::SCN_STYLENEEDED, this,
            [this] { SendScintilla(SCI_STARTSTYLING, SendScintilla(SCI_GETLENGTH)); });
    }
};

class NoView : public MainView {
public:
    void setInformation(std::string_view) override { }
    void setTitlePath(std::string_view) override { }
    void redrawAndFocus() override { }
    void showNote(std::string_view) override { }
    void syncLineNumbers() override { }
    void refreshDocumentStatus() override { }
};

double now()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

struct Key {
    const char *name;
    int code;
    const char *text;
};

constexpr Key keys[] = {{"letter", Qt::Key_A, "a"}, {"<", Qt::Key_Less, "<"}, {">", Qt::Key_Greater, ">"},
    {"Return", Qt::Key_Return, "\r"}, {"Backspace", Qt::Key_Backspace, "\b"}};

/// A function of its own wherever it is called, so that a profiler can be told to look at nothing else.
[[gnu::noinline]] void press(QWidget &control, const Key &key)
{
    QKeyEvent event(QEvent::KeyPress, key.code, Qt::NoModifier, QString::fromLatin1(key.text));
    QCoreApplication::sendEvent(&control, &event);
    QCoreApplication::processEvents();
}

void measure(const std::string &what, Sci &control, const Key &key, int count)
{
    const auto middle = control.SendScintilla(Sci::SCI_GETLENGTH) / 2;
    std::vector<double> costs;
    for (int i = 0; i < count; ++i) {
        // Every twenty keys on a fresh line, so that all controls lay out lines of one length.
        if (i % 20 == 0) {
            const auto line = control.SendScintilla(Sci::SCI_LINEFROMPOSITION, middle) + i / 20;
            control.SendScintilla(
                Sci::SCI_GOTOPOS, control.SendScintilla(Sci::SCI_POSITIONFROMLINE, line) + 30);
            press(control, keys[0]);
        }
        const auto start = now();
        press(control, key);
        costs.push_back(now() - start);
    }
    std::ranges::sort(costs);
    const auto at
        = [&](double part) { return costs[static_cast<std::size_t>(part * static_cast<double>(count - 1))]; };
    std::printf("%-28s %-10s %8.0f %8.0f\n", what.c_str(), key.name, at(0.5), at(0.99));
}

struct Wanted {
    int count = 300;
    std::vector<std::size_t> kilobytes = {100, 20'000};
    std::string control; ///< empty: all of them
    std::string key;
};

void measureAll(const std::string &what, Sci &control, const Wanted &wanted)
{
    control.resize(900, 600);
    control.show();
    // What is painted in the pauses after loading is no part of a key.
    do
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    while (control.SendScintilla(Sci::SCI_GETENDSTYLED) < control.SendScintilla(Sci::SCI_GETLENGTH));
    for (int i = 0; i < 500; ++i)
        QCoreApplication::processEvents();
    for (const auto &key : keys)
        if (wanted.key.empty() || wanted.key == key.name)
            measure(what, control, key, wanted.count);
}

/// A control set up as in the program: typing colours it, and its text is coloured for its tool set.
struct Coloured {
    Coloured(std::string_view text, bool script)
    {
        state.scriptTools = script;
        control.setTypingHandler(&typing);
        control.LoadText(text);
        DocumentColouring({control, state}).colourForTools();
    }

    EditorControl control;
    FakeDocumentState state;
    NoView view;
    TypingColouring typing{{control, state}, view, [](TextRange) {}};
};

void measureMode(const std::string &what, std::string_view text, bool script, const Wanted &wanted)
{
    Coloured coloured(text, script);
    measureAll(what, coloured.control, wanted);
}

class NoFindingsView : public FindingsView {
public:
    void showFindings() override { }
    void showCurrent(std::size_t) override { }
    void showNote(std::string_view) override { }
    void applyEdit(const LineEdit &) override { }
};

/// The thread does not count: it begins when the keys have rested.
void measureAnalysed(const std::string &what, std::string_view text, const Wanted &wanted)
{
    Coloured coloured(text, true);
    auto &control = coloured.control;
    NoFindingsView noFindingsView;
    FindingsCommands findings(control, noFindingsView, [&] { return placeOf(coloured.state); });
    findings.analyseNow();
    FindingMarks marks(control, findings.list());
    marks.refresh();
    QTimer pause;
    pause.setSingleShot(true);
    QObject::connect(
        &control, &EditorControl::changed, &control, [&](Offset at, Offset removed, Offset added) {
            findings.textChanged(at, removed, added);
            pause.start(60'000);
        });
    measureAll(what, control, wanted);
}

void measureBare(const std::string &what, const std::string &text, const Wanted &wanted)
{
    Bare bare;
    bare.SendScintilla(Sci::SCI_APPENDTEXT, text.size(), text.c_str());
    measureAll(what, bare, wanted);
}

void measureSize(std::size_t kilobytes, const Wanted &wanted)
{
    const auto size = std::to_string(kilobytes) + " KB";
    const auto wants
        = [&](const char *control) { return wanted.control.empty() || wanted.control == control; };
    if (wants("bare"))
        measureBare("bare, " + size, filled(pageLine, kilobytes * 1000), wanted);
    if (wants("page"))
        measureMode("page, " + size, filled(pageLine, kilobytes * 1000), false, wanted);
    if (wants("script"))
        measureMode("script, " + size, filled(scriptLine, kilobytes * 1000), true, wanted);
    if (wants("analysed"))
        measureAnalysed("analysed, " + size, filled(scriptLine, kilobytes * 1000), wanted);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Wanted wanted;
    if (argc > 1)
        wanted.count = std::atoi(argv[1]);
    if (argc > 2)
        wanted.kilobytes = {static_cast<std::size_t>(std::atol(argv[2]))};
    if (argc > 3)
        wanted.control = argv[3];
    if (argc > 4)
        wanted.key = argv[4];
    std::printf("%-28s %-10s %8s %8s  microseconds of CPU\n", "control", "key", "p50", "p99");
    for (const auto kilobytes : wanted.kilobytes)
        measureSize(kilobytes, wanted);
}
