// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/analysis.h"
#include "script/fixes.h"
#include "script/program_generator.h"

#include <gtest/gtest.h>

using namespace kevra::script;

namespace {

/// "KV2002@3" for each finding of that level or above, or only of that code.
std::string found(std::string_view text, Level level, const Surroundings &surroundings = {})
{
    const auto script = parse(text);
    const LineIndex lines(text);
    std::string out;
    for (const auto &finding : analyse(script, surroundings)) {
        if (finding.level() <= level)
            out += (out.empty() ? "" : " ") + code(finding.rule) + '@'
                + std::to_string(lines.lineAt(finding.range.start));
    }
    return out;
}

struct Case {
    const char *name;
    const char *text;
    const char *findings;
};

TEST(Analysis, FindsWhatIsNotMeant)
{
    const Case cases[] = {
        {"undeclared", "Option Explicit\nDim total\ntotal = 1\ntotl = 2", "KV1101@4"},
        {"undeclared and read", "Option Explicit\nDim total\ntotal = 1\nMsgBox totl", "KV1101@4"},
        {"another host's name", "Option Explicit\nDim page\nSet page = Browser.Page\nEcho page, micPass", ""},
        {"arguments of a function", "x = Left(\"a\")\nMsgBox Replace(x, 1)\nMsgBox",
            "KV1102@1 KV1102@2 KV1102@3"},
        {"arguments of an own Sub", "Show 1\nCall Show\nSub Show(a, b)\nEnd Sub", "KV1102@1 KV1102@2"},
        {"arguments of a method", "Class C\nSub S(a)\nEnd Sub\nEnd Class\nSet o = New C\no.S 1, 2",
            "KV1102@6"},
        {"an index is no argument", "x = Array(1)\ny = x(0)\nz = Split(\"a b\")(1)", ""},
        {"a constant", "Const k = 1\nk = 2", "KV1103@2"},
        {"declared twice", "Dim a\nConst A = 1\nSub s\nEnd Sub\nSub S\nEnd Sub\nSub t(b)\nDim b\nEnd Sub",
            "KV1020@2 KV1020@8"},
        {"missing Set", "fso = CreateObject(\"Scripting.FileSystemObject\")\nx = New RegExp",
            "KV2002@1 KV2002@2"},
        {"a default member", "Set f = CreateObject(\"Scripting.FileSystemObject\").GetFile(\"a\")\nx = f",
            ""},
        {"Set with a value", "Set x = \"a\"\nSet y = Len(x)\nSet z = Eval(\"x\")", "KV2003@1 KV2003@2"},
        {"no such member",
            "Set s = CreateObject(\"WScript.Shell\")\ns.Runn \"a\"\ns.Run \"a\"\nWScript.Ehco 1",
            "KV2004@2 KV2004@4"},
        {"the type is followed",
            "Set f = CreateObject(\"Scripting.FileSystemObject\")\nFor Each x In f.GetFolder(\"a\").Files"
            "\nMsgBox x.Extension\nNext\nWith f\n.Foo 1\nEnd With",
            "KV2004@3 KV2004@6"},
        {"the type is not certain", "Set x = CreateObject(\"WScript.Shell\")\nIf y Then Set x = z\nx.Foo",
            ""},
        {"one letter off", "Dim counter\ncounter = 1\ncountr = 2\nMsgBox counter", "KV2005@3"},
        {"the result one letter off", "MsgBox GetPath(1)\nFunction GetPath(a)\nGetPaht = a\nEnd Function",
            "KV2009@2 KV2005@3"},
        {"a plural", "Dim files\nfile2 = 1\nfiles = 2\nMsgBox files", ""},
        {"Null compared", "If x = Null Then y = Null\nIf Null <> x Then y = 1", "KV2006@1 KV2006@2"},
        {"errors off for good",
            "x = 1\nOn Error Resume Next\na\nb\nc\nd\ne\nSub s\nOn Error Resume Next\nEnd Sub", "KV2007@2"},
        {"errors off from the start", "Dim x\nOn Error Resume Next\nx = 1\na\nb\nc\nd", ""},
        {"errors off and looked at", "On Error Resume Next\nx = 1\na\nb\nc\nd\nIf Err Then e", ""},
        {"errors off at the end", "a\nb\nc\nOn Error Resume Next\nd\ne", ""},
        {"errors off and on", "On Error Resume Next\nx = 1\nOn Error GoTo 0", ""},
        {"after the end", "WScript.Quit\nSub s\nExit Sub\nx = 1\nEnd Sub\ny = 1", "KV2008@4 KV2008@6"},
        {"an endless loop", "Do\nIf x Then Exit Do\nDo\nLoop\nLoop\ny = 1", ""},
        {"no result",
            "x = F(1)\nFunction F(a)\nb = a\nEnd Function\nFunction G\nSet G = x\nEnd Function\ny = G\nF x",
            "KV2009@2"},
        {"no result and none needed", "unused = F(1)\nFunction F(a)\na = 2\nEnd Function", ""},
        {"a loop variable", "For i = 1 To 9\ni = i + 1\nNext\ni = 0", "KV2010@2"},
        {"a round skipped on purpose", "For i = 1 To 9\nIf x Then i = i + 1\nNext", ""},
        {"And does not stop",
            "If Not x Is Nothing And x.Name = 1 Then y = 1\nIf i <= UBound(a) And a(i) = 1 Then y = 1",
            "KV2011@1 KV2011@2"},
        {"twice the same",
            "If a = 1 Then\nElseIf A=1 Then\nElseIf f(1) Then\nElseIf f(1) Then\nEnd If\nSelect Case a\n"
            "Case \"x\", \"X\"\nCase \"x\"\nEnd Select",
            "KV2012@2 KV2012@8"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(found(c.text, Level::Warning), c.findings);
    }
}

TEST(Analysis, HintsAtWhatIsLeftOver)
{
    const Case cases[] = {
        {"never used", "Option Explicit\nDim a, b\na = 1\nMsgBox a", "KV3005@1 KV3001@2"},
        {"never read", "Option Explicit\nDim a\na = 1", "KV3005@1 KV3002@3"},
        {"hides", "Option Explicit\nDim a\nMsgBox a\nSub s\nDim a, left\na = left\nMsgBox a\nEnd Sub",
            "KV3005@1 KV3003@5 KV3003@5"},
        {"not explicit", "' c\nMsgBox 1", "KV3004@2 KV3005@2"},
        {"used by text", "Option Explicit\nDim a\nExecute \"a = 1\"", "KV3005@1"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(found(c.text, Level::Hint), c.findings);
    }
}

TEST(Analysis, CommentsSilence)
{
    const Case cases[] = {
        {"a line", "Set x = 1 'kevra: off KV2003\nSet x = 2", "KV2003@2"},
        {"another code", "Set x = 1 'kevra: off KV2002", "KV2003@1"},
        {"several", "Set x = Left(1) ' KEVRA: off KV2003, KV1102 known", ""},
        {"all", "Set x = Left(1) 'kevra: off", ""},
        {"a block", "'kevra: off\n\nSub s\nIf a Then\nSet x = 1\nEnd If\nEnd Sub\nSet x = 2", "KV2003@8"},
        {"a block within", "Sub s\n'kevra: off\nIf a Then\nSet x = 1\nEnd If\nSet x = 2\nEnd Sub",
            "KV2003@6"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(found(c.text, Level::Warning), c.findings);
    }
}

TEST(Analysis, FixesPutItRight)
{
    struct {
        const char *name, *text, *fixed;
    } const cases[] = {
        {"Set", "x = New RegExp", "Option Explicit\r\nDim x\r\nSet x = New RegExp"},
        {"every Dim", "a = 1\nSub s(b)\n  c = b + a\n  C = c\nEnd Sub",
            "Option Explicit\nDim a\na = 1\nSub s(b)\n"
            "  Dim c\n  c = b + a\n  C = c\nEnd Sub"},
        {"unused", "Option Explicit\nDim a, b, c\nMsgBox a & c", "Option Explicit\nDim a, c\nMsgBox a & c"},
        {"Null", "Option Explicit\nIf Err = Null Then MsgBox 1",
            "Option Explicit\nIf IsNull(Err) Then MsgBox 1"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const auto fixed = fixAll(c.text, [](std::string_view text) { return analyse(parse(text)); });
        EXPECT_EQ(fixed.text, c.fixed);
    }
}

TEST(Analysis, ValidProgramsHaveNoErrors)
{
    for (std::uint64_t seed = 0; seed < 400; ++seed) {
        const auto text = kevra::testing::generateProgram(seed);
        ASSERT_EQ(found(text, Level::Error), "") << "seed " << seed << '\n' << text;
    }
}

} // namespace
