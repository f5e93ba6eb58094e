// SPDX-License-Identifier: GPL-3.0-or-later
// CPU of colouring a whole document in the control, against Scintilla's own lexers over the same text in the
// same control. "shown" is until the control answers, shows, prints and saves as coloured, "painted" until
// its last byte is. Milliseconds, the best of five, in turns.
//   QT_QPA_PLATFORM=offscreen build/release/bin/colouring_bench
#include "colour/document_colouring.h"
#include "editor/editor_control_qt.h"
#include "fakes/document_state.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

using namespace kevra;
using Sci = QsciScintillaBase;

constexpr std::string_view pageLine
    = "<p><b>Hours</b> <i>Mo</i></p> of the shop, and in summer as well as on the days between years.\r\n";
constexpr std::string_view scriptLine
    = "If total = 1 Then MsgBox \"The shop is closed\" & day '-- hours\r\nSet fso = CreateObject(name)\r\n";

double now()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

struct Costs {
    double load = 1e9;
    double shown = 1e9;
    double painted = 1e9;
    double lexer = 1e9;
};

void measureOurs(std::string_view text, bool script, Costs &costs)
{
    EditorControl control;
    control.resize(900, 600);
    control.show();
    FakeDocumentState state;
    state.scriptTools = script;
    const auto start = now();
    control.LoadText(text);
    const auto loaded = now();
    DocumentColouring({control, state}).colourForTools();
    const auto shown = now();
    control.paintAll();
    costs.load = std::min(costs.load, loaded - start);
    costs.shown = std::min(costs.shown, shown - loaded);
    costs.painted = std::min(costs.painted, now() - loaded);
}

void measureLexer(std::string_view text, bool script, Costs &costs)
{
    EditorControl control;
    control.LoadText(text);
    const auto start = now();
    control.SendScintilla(
        Sci::SCI_SETLEXER, static_cast<long>(script ? Sci::SCLEX_VBSCRIPT : Sci::SCLEX_HTML));
    control.SendScintilla(Sci::SCI_COLOURISE, 0UL, -1L);
    costs.lexer = std::min(costs.lexer, now() - start);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    std::printf("%-16s %8s %8s %8s %8s %8s\n", "document", "load", "shown", "painted", "lexer", "ratios");
    for (const bool script : {false, true})
        for (const std::size_t size : {1'000'000, 10'000'000}) {
            std::string text;
            while (text.size() < size)
                text += script ? scriptLine : pageLine;
            Costs costs;
            for (int i = 0; i < 5; ++i) {
                measureOurs(text, script, costs);
                measureLexer(text, script, costs);
            }
            std::printf("%-6s %6zu MB %8.1f %8.1f %8.1f %8.1f %8.1f %8.1f\n", script ? "script" : "page",
                size / 1'000'000, costs.load, costs.shown, costs.painted, costs.lexer,
                costs.lexer / costs.shown, costs.lexer / costs.painted);
        }
}
