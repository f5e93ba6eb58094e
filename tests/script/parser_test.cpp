// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/parser.h"
#include "script/program_generator.h"
#include "script/tree_checks.h"

#include <gtest/gtest.h>

#include <random>

using namespace kevra;
using namespace kevra::script;

namespace {

std::string listed(const ParsedScript &script)
{
    const LineIndex lines(script.text);
    std::string list;
    for (const auto &finding : script.findings)
        list += std::to_string(lines.lineAt(finding.range.start)) + " " + code(finding.rule) + " "
            + finding.what + "\n";
    return list;
}

std::string applied(std::string text, const Fix &fix)
{
    for (auto edit = fix.edits.rbegin(); edit != fix.edits.rend(); ++edit)
        text.replace(static_cast<std::size_t>(edit->range.start),
            static_cast<std::size_t>(edit->range.length()), edit->text);
    return text;
}

/// With all parentheses that the strength of the operators puts there.
std::string bracketed(const ParsedScript &script, NodeId id)
{
    const auto &node = script.tree[id];
    const auto binary = node.kind == NodeKind::Binary;
    if (!binary && node.kind != NodeKind::Unary)
        return std::string(script.textOf(id));
    std::string text = binary ? "(" : "(" + std::to_string(static_cast<int>(node.op)) + " ";
    for (const auto child : script.tree.children(id)) {
        if (child != node.firstChild)
            text += ' ' + std::to_string(static_cast<int>(node.op)) + ' ';
        text += bracketed(script, child);
    }
    return text + ")";
}

} // namespace

TEST(ScriptParser, AcceptsWhatTheScriptHostAccepts)
{
    const char *const programs[] = {
        "Option Explicit\nDim a, b(), c(5), d(2, 3)\nPublic e, f(3)\nPrivate g\nConst h = -1, i = \"x\", j = "
        "&HFF&, k = #1/31/2026#",
        "If a Then b\nIf a Then b Else c : d\nIf a Then b : c Else d\nIf a Then b : Else c\nIf a Then b Else",
        "If a Then b End If\nIf a Then b : c : End If\nIf a Then : b : Else : c : End If\nIf a Then If b "
        "Then c Else d Else e",
        "If a Then\nb\nElse: c\nEnd If\nIf a Then 'why\nElseIf b Then c\nElse d\nEnd If\nIf a Then:\nb\nEnd "
        "If",
        "If a Then\nx\nElse If b Then\ny\nEnd If\nEnd If\nIf a Then For i = 1 To 3\nx\nNext\nIf a Then Do : "
        "x : Loop While b",
        "Do\nLoop\nDo While a\nLoop\nDo Until a\nLoop\nDo\nLoop While a\nDo\nLoop Until a\nWhile a : b : "
        "Wend",
        "For i = 1 To 3 Step -1 : Next\nFor Each a In b : c : Next\nFor Step = 1 To Step Step "
        "Step\nNext\nFor i=1To 3\nIf a Then b: Next",
        "Select Case a\n'why\nCase 1, \"x\", b + c\nd\nCase 2: e\nCase 3 f = 1\nCase Else g\nEnd Select",
        "With a\n.b = 1 : .c 2, , 3\nf .d, .e(.g)\nWith .h\n.i.j(1)(2) = .k\nEnd With\nEnd With",
        "Sub f : End Sub\nSub g(a(), ByVal b, ByRef c) : End Sub\nFunction h() h = 1 End Function\nSub i\nx "
        "= 1 End Sub : y = 2",
        "Class C\nDim a, b(3)\nPrivate c\nPublic Default Property Get Item(i)\nEnd Property\nPublic Property "
        "Let Item(i, v)\nEnd Property\n"
        "Private Sub Class_Initialize\nEnd Sub\nPublic Function Next()\nExit Function\nEnd Function\nEnd "
        "Class",
        "f\nf()\nf a\nf a, , b\nf , a\nf (a)\nf (a), b\nf (a) & b, c\nf(a)(b)\nf (a) - 1\nf -1\nf Not a\nf a "
        "= b\nf(1, 2).x\nf(1,2)(3)",
        "Call f\nCall f(a)\nCall f(a, , b)\nCall f(a)(b)\nCall a.b.c(1)\na(\"x\")(\"y\").Z 1, , 2\na (b).c & "
        "d\nSet a = New C\nx = (New C).d",
        "x = y = z\nx = Not a Is Nothing\nx = a =< b\nx = a >< b\nx = a < > b\nx = .5 + 1. + 1.e5 - 1E-5\nx "
        "= -a ^ -b\nx = \"a\" &17\nx = &o17",
        "x = \"say \"\"yes\"\"\" & _\n  \"b\"&_\t\n\"c\"\nx.if = 1\nx.next.end 1\nx.rem = 1\n[a b] = "
        "[if]\nx. y _\n.z\nRem x = = \nx = 1 Rem y\n: x : : y :",
        "Property = 1\nStep = Property : Error = 2\nDefault.Explicit Preserve\nSub Step(Error) : End "
        "Sub\nErase a, b\nReDim Preserve a(1, n), b(3)",
        "On Error Resume Next\nOn Error GoTo 0\nStop\nRandomize\nExecute \"x\"\nIf x Then\nSub b\nEnd "
        "Sub\nEnd If\n\xC3\xA9t\xC3\xA9 = 1\x1A",
        "\xEF\xBB\xBFx = 1\rIf a Then\ry\r\nEnd If\n\fx = \"a\" &Hello : f &HFF, &h80000002",
    };
    for (const auto *program : programs) {
        const auto script = parse(program);
        EXPECT_EQ(listed(script), "") << program;
        expectSoundTree(script);
    }
}

TEST(ScriptParser, NamesEachFaultInItsLine)
{
    struct {
        Rule rule;
        int line;
        const char *text;
    } const cases[] = {
        {Rule::UnclosedString, 2, "x = 1\nMsgBox \"abc\ny = 2"},
        {Rule::UnclosedString, 1, "If x = \"a Then\ny\nEnd If"},
        {Rule::InvalidCharacter, 1, "x = \xE2\x80\x9Ctext\xE2\x80\x9D"},
        {Rule::InvalidCharacter, 2, "a\nx = b ? c"},
        {Rule::InvalidDate, 1, "x = #1/1/2026"},
        {Rule::MissingParenthesis, 2, "a\nx = Left(b, Len(c)\nd"},
        {Rule::MissingParenthesis, 1, "If (a = 1 Then\nb\nEnd If"},
        {Rule::UnexpectedParenthesis, 1, "x = Left(b, 1))"},
        {Rule::UnexpectedParenthesis, 1, "If a) Then\nb\nEnd If"},
        {Rule::MissingOperand, 1, "x = a &\ny = 1"},
        {Rule::MissingOperand, 1, "f a,"},
        {Rule::MissingOperand, 2, "a\nIf x = Then\nb\nEnd If"},
        {Rule::ExpectedEndOfStatement, 1, "Dim x = 5"},
        {Rule::ExpectedEndOfStatement, 1, "f \"a\" \"b\""},
        {Rule::ExpectedEndOfStatement, 1, "Do x = x + 1\nLoop"},
        {Rule::MissingThen, 1, "If a\nb\nEnd If"},
        {Rule::MissingThen, 3, "If a Then\nb\nElseIf c\nd\nEnd If"},
        {Rule::MissingThen, 1, "If a = 1 b = 2"},
        {Rule::UnclosedBlock, 2, "Sub f\nIf a Then\nb\nEnd Sub"},
        {Rule::UnclosedBlock, 1, "Sub f\na\nSub g\nEnd Sub"},
        {Rule::UnclosedBlock, 2, "For i = 1 To 2\nDo\nx\nNext"},
        {Rule::UnclosedBlock, 2, "If a Then\nWith b\nElse\nEnd If"},
        {Rule::UnclosedBlock, 1, "Select Case a\nCase 1\nb"},
        {Rule::UnclosedBlock, 1, "Class C\nDim a\nSub f\nEnd Sub\nx = 1"},
        {Rule::UnmatchedBlockEnd, 2, "If a Then b\nEnd If"},
        {Rule::UnmatchedBlockEnd, 2, "x\nNext\ny"},
        {Rule::UnmatchedBlockEnd, 5, "If a Then\nb\nElse\nc\nElse\nd\nEnd If"},
        {Rule::UnmatchedBlockEnd, 3, "While a\nb\nEnd While"},
        {Rule::UnmatchedBlockEnd, 3, "If a Then\nb\nEndIf"},
        {Rule::UnmatchedBlockEnd, 3, "Sub f\nx\nEnd Function"},
        // Indentation tells which of the nested blocks it is.
        {Rule::UnclosedBlock, 2, "If a Then\n  If b Then\n    x\nEnd If"},
        {Rule::UnclosedBlock, 3, "Do\n Do\n  Do\n   x\n Loop\nLoop"},
        {Rule::UnmatchedBlockEnd, 4, "Sub f\n If a Then\n   x\n  End If\n End If\nEnd Sub"},
        {Rule::UnmatchedBlockEnd, 3, "If a Then\n   x\n  Else\n   y\nElse\n  z\nEnd If"},
        {Rule::NameAfterNext, 3, "For i = 1 To 3\nx\nNext i"},
        {Rule::TypeDeclaration, 1, "Dim x As Integer, y"},
        {Rule::TypeDeclaration, 1, "Function f(a)  As String\nEnd Function"},
        {Rule::TypeSuffix, 1, "x = Left$(a, 1)"},
        {Rule::OptionalParameter, 1, "Sub f(Optional a)\nEnd Sub"},
        {Rule::OptionalParameter, 1, "Sub f(a, b = 2)\nEnd Sub"},
        {Rule::LabelJump, 2, "x\nOn Error GoTo handler\ny"},
        {Rule::LabelJump, 1, "Resume Next"},
        {Rule::LineLabel, 1, "10 x = 1"},
        {Rule::SubCallParentheses, 1, "f(a, b)"},
        {Rule::SubCallParentheses, 2, "x\na.b(1).c (d, e)"},
        {Rule::ExitOutside, 2, "Sub f\nExit Function\nEnd Sub"},
        {Rule::ExitOutside, 2, "While a\nExit While\nWend"},
        {Rule::ExitOutside, 3, "Do\nSub f\nExit Do\nEnd Sub\nLoop"},
        {Rule::InvalidAssignment, 1, "Me = x"},
        {Rule::InvalidAssignment, 1, "Set x y"},
        {Rule::ConstantNotLiteral, 1, "Const a = 1, b = a"},
        {Rule::MisplacedOptionExplicit, 2, "x = 1\nOption Explicit"},
        {Rule::ReservedName, 1, "Dim next"},
        {Rule::UnsupportedOperator, 1, "x += 1"},
        {Rule::UnsupportedOperator, 1, "x++"},
        {Rule::UnsupportedOperator, 1, "If a == b Then c"},
        {Rule::UnsupportedOperator, 1, "f a:=1"},
        {Rule::UnsupportedStatement, 1, "Let x = 1"},
        {Rule::UnsupportedStatement, 1, "End"},
        {Rule::LoopVariable, 1, "For a.b = 1 To 3\nNext"},
        {Rule::MisplacedDeclaration, 3, "Class C\nDim a\na = 1\nEnd Class"},
        {Rule::MisplacedDeclaration, 1, "Public Class C\nEnd Class"},
        {Rule::PropertyArguments, 2, "Class C\nProperty Let x\nEnd Property\nEnd Class"},
        {Rule::MemberOutsideWith, 1, ".x = 1"},
        {Rule::InvalidBounds, 1, "Dim a(n)"},
        {Rule::InvalidBounds, 1, "ReDim a"},
        {Rule::InvalidContinuation, 1, "x = 1 + _ 'why\n2"},
        {Rule::CaseRange, 2, "Select Case x\nCase 1 To 5\nEnd Select"},
        {Rule::SyntaxError, 1, "For i 1 To 3\nNext"},
        {Rule::SyntaxError, 1, "Select x\nCase 1\nEnd Select"},
        {Rule::SyntaxError, 1, "\"text\".x"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text);
        const std::string text = c.text;
        const auto script = parse(text);
        ASSERT_EQ(script.findings.size(), 1U) << listed(script);
        const auto &finding = script.findings[0];
        EXPECT_EQ(code(finding.rule), code(c.rule)) << listed(script);
        EXPECT_EQ(LineIndex(text).lineAt(finding.range.start), c.line);
        EXPECT_LT(finding.range.start, finding.range.end);
        expectSoundTree(script);
        for (const auto &fix : finding.fixes) {
            const auto fixed = applied(text, fix);
            EXPECT_EQ(listed(parse(fixed)), "") << fix.title << ": " << fixed;
        }
    }
}

TEST(ScriptParser, BindsOperatorsByTheirStrength)
{
    constexpr auto op = [](Operator o) { return std::to_string(static_cast<int>(o)); };
    const auto And = op(Operator::And), Or = op(Operator::Or), Not = op(Operator::Not), Is = op(Operator::Is);
    const auto plus = op(Operator::Add), times = op(Operator::Multiply), power = op(Operator::Power);
    const auto minus = op(Operator::Negate), join = op(Operator::Concatenate), equal = op(Operator::Equal);
    const struct {
        const char *expression;
        std::string brackets;
    } cases[] = {
        {"a + b * c ^ d", "(a " + plus + " (b " + times + " (c " + power + " d)))"},
        {"a ^ b * c + d", "(((a " + power + " b) " + times + " c) " + plus + " d)"},
        {"-a ^ -b * c", "((" + minus + " (a " + power + " (" + minus + " b))) " + times + " c)"},
        {"Not a = b And c Or d", "(((" + Not + " (a " + equal + " b)) " + And + " c) " + Or + " d)"},
        {"Not a Is Nothing", "(" + Not + " (a " + Is + " Nothing))"},
        {"a & b & c + d", "(a " + join + " b " + join + " (c " + plus + " d))"},
        {"a = b = c & d", "((a " + equal + " b) " + equal + " (c " + join + " d))"},
    };
    for (const auto &c : cases) {
        const auto text = std::string("x = ") + c.expression;
        const auto script = parse(text);
        const auto assignment = script.tree.child(script.tree.root(), 0);
        EXPECT_EQ(bracketed(script, script.tree.child(assignment, 1)), c.brackets);
    }
}

TEST(ScriptParser, TellsWhereTheOtherEndIs)
{
    const auto script = parse("Sub f\nx\nIf a Then\ny\nEnd Sub");
    ASSERT_EQ(listed(script), "3 KV1011 If in line 3 is still open at 'End Sub' in line 5.\n");
    const auto &related = script.findings[0].related;
    ASSERT_EQ(related.size(), 1U);
    EXPECT_EQ(script.textOf(related[0].range), "End Sub");
}

TEST(ScriptParser, FindsNothingInGeneratedProgramsAndStaysSoundInDamagedOnes)
{
    for (unsigned seed = 1; seed <= 150; ++seed) {
        auto program = kevra::testing::generateProgram(seed);
        const auto script = parse(program);
        ASSERT_EQ(listed(script), "") << "seed " << seed;
        expectSoundTree(script);
        expectTokensCover(program);
        std::mt19937 random(seed);
        for (int damage = 0; damage < 8; ++damage) {
            program.erase(random() % program.size(), 1 + random() % 12);
            program.insert(random() % program.size(), 1, "\"()'\n:#&.]_"[random() % 11]);
            expectSoundTree(parse(program));
            expectTokensCover(program);
        }
    }
}

TEST(ScriptParser, SaysWhereItStoppedInHostileNesting)
{
    for (const char *opening : {"(", "f(", "Not ", "-", "x=a.b(", "If a Then\n", "If a Then ", "Do\n",
             "With a : ", "a.", "1+1-", "Select Case a\nCase 1\n", "x = a = "}) {
        std::string text = "x = ";
        for (int depth = 0; depth < 100'000; ++depth)
            text += opening;
        const auto script = parse(text);
        expectSoundTree(script);
        if (script.complete)
            continue;
        ASSERT_FALSE(script.findings.empty()) << opening;
        EXPECT_EQ(script.findings.back().rule, Rule::NestingTooDeep) << opening;
    }
    EXPECT_FALSE(parse("x = " + std::string(100'000, '(')).complete);
}
