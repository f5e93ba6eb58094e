// SPDX-License-Identifier: GPL-3.0-or-later
// CPU of one keystroke, from the key event to the painted line, in the middle of a small and a large
// document, in both tool sets, against a bare Scintilla control that has no accessibility to serve. Prints
// p50 and p99 in microseconds.
//   QT_QPA_PLATFORM=offscreen build/release/bin/keystroke_bench [KEYS]
#include "colour/document_colouring.h"
#include "colour/typing_colouring.h"
#include "editor/editor_control_qt.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>

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
    void levelLineNumbers() override { }
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

void press(QWidget &control, const Key &key)
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

void measureAll(const std::string &what, Sci &control, int count)
{
    control.resize(900, 600);
    control.show();
    for (int i = 0; i < 500; ++i)
        QCoreApplication::processEvents();
    for (const auto &key : keys)
        measure(what, control, key, count);
}

void measureMode(const std::string &what, std::string_view text, bool script, int count)
{
    EditorControl control;
    DocumentState state;
    state.scriptTools = script;
    NoView view;
    TypingColouring typing(control, state, view, [](TextRange) {});
    control.setTypingHandler(&typing);
    control.LoadText(text);
    DocumentColouring(control, state).colourForTools();
    measureAll(what, control, count);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const int count = argc > 1 ? std::atoi(argv[1]) : 300;
    std::printf("%-28s %-10s %8s %8s  microseconds of CPU\n", "control", "key", "p50", "p99");
    for (const std::size_t size : {100'000, 20'000'000}) {
        const std::string label = size > 1'000'000 ? ", 20 MB" : ", 100 KB";
        const auto page = filled(pageLine, size);
        {
            Bare bare;
            bare.SendScintilla(Sci::SCI_APPENDTEXT, page.size(), page.c_str());
            measureAll("bare" + label, bare, count);
        }
        measureMode("page" + label, page, false, count);
        measureMode("script" + label, filled(scriptLine, size), true, count);
    }
}
