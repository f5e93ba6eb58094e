// SPDX-License-Identifier: GPL-3.0-or-later
// CPU of one keystroke, from the key event to the painted line, in the middle of a small and a large
// document, against a bare Scintilla control that has no accessibility to serve. Prints p50 and p99 in
// microseconds.
//   QT_QPA_PLATFORM=offscreen build/release/bin/keystroke_bench [KEYS]
#include "editor/editor_control_qt.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>

namespace {

using kevra::EditorControl;
using Sci = QsciScintillaBase;

std::string page(std::size_t size)
{
    std::string text;
    for (int line = 0; text.size() < size; ++line)
        text += "<p class=\"row\"><b>Opening hours</b> <i>Monday</i> to <a href=\"x.htm\">Friday</a></p>"
            + std::to_string(line) + "\r\n";
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
        connect(this, &Sci::SCN_STYLENEEDED, this,
            [this] { SendScintilla(SCI_STARTSTYLING, SendScintilla(SCI_GETLENGTH)); });
    }
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

void measure(const char *what, QWidget &control, const Key &key, int count)
{
    std::vector<double> costs;
    for (int i = 0; i < count; ++i) {
        const auto start = now();
        QKeyEvent press(QEvent::KeyPress, key.code, Qt::NoModifier, QString::fromLatin1(key.text));
        QCoreApplication::sendEvent(&control, &press);
        QCoreApplication::processEvents();
        costs.push_back(now() - start);
    }
    std::ranges::sort(costs);
    const auto at = [&](double part) {
        return costs[static_cast<std::size_t>(part * static_cast<double>(costs.size() - 1))];
    };
    std::printf("%-24s %-10s %8.0f %8.0f\n", what, key.name, at(0.5), at(0.99));
}

void show(Sci &control, const std::string &text)
{
    control.resize(900, 600);
    control.show();
    const auto middle = control.SendScintilla(Sci::SCI_POSITIONFROMLINE,
        control.SendScintilla(Sci::SCI_LINEFROMPOSITION, static_cast<long>(text.size() / 2)));
    control.SendScintilla(Sci::SCI_GOTOPOS, middle + 20);
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const int count = argc > 1 ? std::atoi(argv[1]) : 300;
    std::printf("%-24s %-10s %8s %8s  microseconds of CPU\n", "control", "key", "p50", "p99");
    for (const std::size_t size : {100'000, 20'000'000}) {
        const auto text = page(size);
        const auto label = size > 1'000'000 ? "20 MB" : "100 KB";
        {
            Bare bare;
            bare.SendScintilla(Sci::SCI_APPENDTEXT, text.size(), text.c_str());
            show(bare, text);
            for (const auto &key : keys)
                measure((std::string("bare ") + label).c_str(), bare, key, count);
        }
        EditorControl control;
        control.LoadText(text);
        kevra::ColourRuns runs;
        for (kevra::Offset at = 0; at + 100 < std::ssize(text); at += 100)
            runs.push_back({{at, at + 50}, kevra::colours::defaultCode});
        control.SetColours({0, control.Length()}, runs);
        show(control, text);
        for (const auto &key : keys)
            measure((std::string("EditorControl ") + label).c_str(), control, key, count);
    }
}
