// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/checker.h"
#include "checker/literal_checker.h"
#include "checker/script_debugger.h"
#include "fakes/document_state.h"
#include "fakes/views.h"

#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <random>

namespace kevra {
namespace {

constexpr int scriptsCompared = 60'000;

const std::vector<std::string> bits{"\r\n", "\r\n", " ", " ", "\"", "\"\"", "(", ")", "f(a, b)", ", ", ",",
    " = ", "=", "<= ", "if", "If a Then", " then ", "End If", "d if", "for", "Next", "  next", "\tnext",
    "Resume Next", "sub", "End Sub", "blend iffy", "do", "Exit Do", "loop", "'--", "' ", "x", "_",
    "FileSystemObject", "WScript.Shell", "fso.FileExists", "FileExists", "CopyFile", ".Close", "Close",
    "RegWrite ", "sh.RegWrite ", "Run ", "Write ", "SkipLine", "MsgBox \"Close\"", "x = 1\r\n",
    "If a = b Then\r\nEnd If\r\n"};
const std::vector<std::string> validLines{"x = 1\r\n", "If a Then\r\n", "End If\r\n", "For i = 1 To 3\r\n",
    "Next\r\n", "  Next\r\n", "Sub a\r\n", "End Sub\r\n", "Do\r\n", "Exit Do\r\n", "Loop\r\n",
    "'-- Exit Do if next\r\n", "' it's if\r\n", "MsgBox \"for if do\"\r\n", "y = \"FileSystemObject\"\r\n",
    "z = \"WScript.Shell\"\r\n", "fso.CopyFile a, b\r\n", "CopyFile a, b\r\n", "ts.Close\r\n", "Close\r\n",
    "MsgBox \"Close\"\r\n", "sh.RegWrite a, 1\r\n", "Run \r\n", "On Error Resume Next\r\n", "Write \"x\"\r\n",
    "AtEndOfLine"};

std::string colours(const MemorySurface &surface)
{
    std::string out;
    for (Offset at = 0; at < surface.TextLength(); ++at)
        out += surface.ColourAt(at) == colours::fault ? 'r' : '.';
    return out;
}

TEST(Checker, FindsWhatTheProcedureFinds)
{
    std::mt19937 random(4);
    const auto number
        = [&](std::size_t max) { return std::uniform_int_distribution<std::size_t>(0, max)(random); };
    std::map<std::string, int> verdicts;
    for (int i = 0; i < scriptsCompared; ++i) {
        const auto &parts = i % 3 == 0 ? bits : validLines;
        std::string text;
        for (auto left = number(i % 2 ? 8 : 24); left > 0; --left)
            text += parts[number(parts.size() - 1)];
        if (i % 8 == 0) {
            const auto &members = sectionMembers[number(sectionMembers.size() - 1)];
            text += "\r\n" + members[number(members.size() - 1)];
        }
        FakeDocumentState state;
        state.scriptTools = true;
        state.options.ifChecking = number(3) != 0;
        state.options.colourCoding = number(1) != 0;
        MemorySurface literal(text);
        LiteralChecker reference(literal, state.options.ifChecking, state.options.colourCoding);
        reference.tinfo = "Debugging. . .";
        reference.RunDebugger();
        MemorySurface document(text);
        FakeMainView view;
        ScriptDebugger({document, state}, view).debugDocument();
        ASSERT_EQ(view.information, reference.tinfo) << text;
        ASSERT_EQ(colours(document), colours(literal)) << text << "\n" << view.information;
        ASSERT_EQ(document.Selection(), literal.Selection()) << text << "\n" << view.information;
        ++verdicts[view.information.substr(0, 8)];
    }
    std::cout << scriptsCompared << " scripts compared:";
    for (const auto &[start, count] : verdicts)
        std::cout << ' ' << start << ".. " << count << ';';
    std::cout << '\n';
    EXPECT_GE(verdicts.size(), 13u);
}

TEST(Checker, JudgesAFinishedLineAsTheProcedureDoes)
{
    std::mt19937 random(5);
    const auto number
        = [&](std::size_t max) { return std::uniform_int_distribution<std::size_t>(0, max)(random); };
    for (int i = 0; i < scriptsCompared / 4; ++i) {
        std::string text;
        for (auto left = number(10); left > 0; --left)
            text += bits[number(bits.size() - 1)];
        const auto caret = text.size() + 2;
        text += "\r\n";
        for (auto left = number(3); left > 0; --left)
            text += bits[number(bits.size() - 1)];
        MemorySurface literal(text);
        LiteralChecker reference(literal, true, true);
        reference.tinfo = "(untouched)";
        reference.lineEnd = static_cast<int>(caret);
        const auto above = text.rfind('\n', caret - 3);
        reference.lineStart = caret < 3 || above == std::string::npos ? 0 : static_cast<int>(above) + 1;
        literal.SetSelStart(reference.lineEnd);
        reference.CheckLine();
        MemorySurface document(text);
        document.SetSelStart(static_cast<Offset>(caret));
        FakeDocumentState state;
        FakeMainView view;
        ScriptDebugger({document, state}, view).checkFinishedLine({reference.lineStart, reference.lineEnd});
        ASSERT_EQ(view.information, reference.tinfo) << text;
        ASSERT_EQ(colours(document), colours(literal)) << text;
        ASSERT_EQ(document.Selection(), literal.Selection()) << text;
    }
}

} // namespace
} // namespace kevra
