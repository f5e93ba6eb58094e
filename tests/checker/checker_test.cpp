// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/checker.h"

#include "checker/line_rules.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(Checker, GivesOneVerdict)
{
    struct {
        const char *name;
        std::string_view text;
        std::string_view verdict;
        bool ifChecking = true;
    } const cases[] = {
        {"nothing", "", "OK"},
        {"one character", "x", "OK"},
        {"one line without a break is not judged by the line rules", "x=1", "OK"},
        {"nor is the last line", "a\r\nx=1", "OK"},
        {"nor a line whose break ends the text", "x=1\r", "OK"},
        {"one-line If, not asked for", "If a Then b", "OK", false},
        {"Exit For counts", "For i = 1 To 3\r\nExit For\r\nNext\r\n", "FOR - 2   NEXT - 1"},
        {"Exit Sub counts", "Sub x\r\nExit Sub\r\nEnd Sub\r\n", "SUB - 2   END SUB - 1"},
        {"Resume Next does not", "On Error Resume Next", "OK"},
        {"with two blanks it does", "On Error Resume  Next", "FOR - 0   NEXT - 1"},
        {"after two tabs it does not", "For i = 1 To 2\r\n\t\tNext\r\n", "FOR - 1   NEXT - 0"},
        {"but is subtracted in a comment", "Do\r\n'-- Exit Do\r\nLoop\r\n", "DO - 0   LOOP - 1"},
        {"a Next in a comment is not", "'-- Resume Next\r\n", "OK"},
        {"before an open literal they count twice", "for \"x", "FOR - 2   NEXT - 0"},
        {"eleven quotes pass", "\"\"\"\"\"\"\"\"\"\"\"\r\n\r\n", "OK"},
        {"comma between literals", "x = f(\"a\",\"b\")\r\n", "Spacing around comma is wrong - Line 1"},
        {"comma at the line's end", "a\r\nf(a,\r\n)\r\n", "Parenthesis missing - Line 2"},
        {"the first line's If is not seen", "If x = 1\r\nEnd If\r\n", "OK"},
        {"End  If with two blanks", "If x Then\r\nEnd  If\r\n", "IF without THEN - Line 2"},
        {"first character is a parenthesis", "(a) + (b)\r\nx\r\n", "Parenthesis missing - Line 1"},
        {"first character is =", "= 1\r\n", "OK"},
        {"a bare method", "y = \"FileSystemObject\"\r\nIf FileExists(f) Then\r\nEnd If\r\n",
            "FileSystemObject required - Line 2"},
        {"a method in a literal", "y = \"FileSystemObject\"\r\nMsgBox \"use CopyFile here\"\r\n",
            "FileSystemObject required - Line 2"},
        {"Run with a parenthesis is not searched for", "y = \"WScript.Shell\"\r\nRun(\"x\")\r\n", "OK"},
        {"a name inside a name", "Enclosed = 1", "Textstream, Drive or Folder Object required - Line 1"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(check(c.text, c.ifChecking).verdict, c.verdict);
    }
}

TEST(Checker, MarksWholeCharacters)
{
    struct {
        const char *name;
        std::string_view text;
        std::string_view verdict;
        TextRange marked;
        Offset caret;
    } const cases[] = {
        {"the first line's first character stays black", "\xC3\xA9=1\r\nx\r\n",
            "Wrong spacing at equal sign - Line 1", {2, 6}, 4},
        {"a d at the line's second character is no End",
            "\xC3\xA9"
            "d\tif\r\nx\r\n",
            "IF without THEN - Line 1", {2, 8}, 6},
        {"the caret stands before the last character", "Close \xC3\xA9",
            "Textstream, Drive or Folder Object required - Line 1", {0, 8}, 6},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const auto result = check(c.text, true);
        EXPECT_EQ(result.verdict, c.verdict);
        ASSERT_TRUE(result.fault);
        EXPECT_EQ(result.fault->marked, c.marked);
        EXPECT_EQ(result.fault->caret, c.caret);
    }
    const auto finished = CheckLine("a,b\r\n\xC3\xA9", {0, 5}, 1);
    ASSERT_TRUE(finished);
    EXPECT_EQ(finished->marked, (TextRange{0, 7}));
}

TEST(Checker, ListsEveryFinding)
{
    std::vector<std::string> messages;
    for (const auto &finding :
        checkAll("x=1\r\ny=2\r\nFor\r\nIf a Then b\r\nClose\r\nts.Close\r\nSkip\r\n", true))
        messages.push_back(finding.message);
    EXPECT_EQ(messages,
        (std::vector<std::string>{"Wrong spacing at equal sign - Line 1",
            "Wrong spacing at equal sign - Line 2", "IF - 1   END IF - 0", "FOR - 1   NEXT - 0",
            "Textstream, Drive or Folder Object required - Line 5",
            "Textstream, Drive or Folder Object required - Line 7"}));
}

TEST(Checker, NamesALineToGoTo)
{
    EXPECT_EQ(lineNamedBy("IF without THEN - Line 12"), 12);
    for (const char *text : {"OK", "IF - 1   END IF - 0", "x - Line ", "x - Line 0", "x - Line 3a", ""})
        EXPECT_FALSE(lineNamedBy(text)) << text;
}

TEST(BlockCounts, StayBalancedBeyondSixteenBits)
{
    std::string text;
    for (int i = 0; i < 40'000; ++i)
        text += "If a Then\r\nEnd If\r\n";
    EXPECT_EQ(check(text, true).verdict, "OK");
}

} // namespace
} // namespace kevra
