// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/line_edits.h"

#include "editor/memory_surface.h"
#include "editor/nearby.h"
#include "fakes/marked_text.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace kevra {
namespace {

constexpr CommentMarks scriptMarks{"'", ""};
constexpr CommentMarks pageMarks{"<!-- ", " -->"};

using Command = std::optional<LineEdit> (*)(const EditorSurface &, AnchorAndCaret);

std::optional<LineEdit> toggleScript(const EditorSurface &document, AnchorAndCaret selection)
{
    return toggledComments(document, selection, scriptMarks);
}
std::optional<LineEdit> togglePage(const EditorSurface &document, AnchorAndCaret selection)
{
    return toggledComments(document, selection, pageMarks);
}
std::optional<LineEdit> moveUp(const EditorSurface &document, AnchorAndCaret selection)
{
    return movedLines(document, selection, Move::Up);
}
std::optional<LineEdit> moveDown(const EditorSurface &document, AnchorAndCaret selection)
{
    return movedLines(document, selection, Move::Down);
}

std::optional<LineEdit> unindent(const EditorSurface &document, AnchorAndCaret selection)
{
    return unindentedLines(document, selection, 4);
}

bool run(MemorySurface &document, Command command)
{
    const auto [start, end] = document.Selection();
    const auto edit = command(document, {start, end});
    if (!edit)
        return false;
    document.Replace(edit->range, edit->text);
    document.Select({edit->after.anchor, edit->after.caret});
    return true;
}

TEST(LineEdits, LeaveTextAndSelection)
{
    const struct {
        const char *name;
        Command command;
        const char *before;
        const char *after;
    } cases[] = {
        {"a line becomes a comment", toggleScript, "\tDim |x\r\n", "\t'Dim |x\r\n"},
        {"all of them comments", toggleScript, "  '[a\r\n\r\n'b]", "  [a\r\n\r\nb]"},
        {"one of them not", toggleScript, "'[a\r\nb\r\n]c", "''[a\r\n'b\r\n]c"},
        {"a page", togglePage, " [<p>\r\n</p>]\r\n", " [<!-- <p> -->\r\n<!-- </p>] -->\r\n"},
        {"no comment in a comment", togglePage, "[a\r\nb <!-- c -->\r\n]",
            "[<!-- a -->\r\nb <!-- c -->\r\n]"},
        {"off a page, without blanks too", togglePage, "|<!--a-->", "|a"},
        {"the last line up", moveUp, "a\r\nb\r\nc|", "a\r\nc|\r\nb"},
        {"to the end of the text", moveDown, "[a\r\n]b", "b\r\n[a]"},
        {"a copy", duplicatedLines, "a|b", "ab\r\na|b"},
        {"the caret stays in its indentation", unindent, "\t\t|", "\t|"},
        {"spaces stay spaces", unindent, "        a[b]", "    a[b]"},
        {"less than a level", unindent, "[\ta\r\n  \tb\r\n  c\r\nd]", "[a\r\nb\r\nc\r\nd]"},
        {"lines gone", deletedLines, "a\r\nb[b\r\nc]c\r\nd", "a\r\n|d"},
        {"the last one gone", deletedLines, "ab\r\nc|d", "|ab"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        MemorySurface document;
        loadMarked(document, c.before);
        EXPECT_TRUE(run(document, c.command));
        EXPECT_EQ(markedText(document), c.after);
    }
}

TEST(LineEdits, ComeBackToTheSameText)
{
    std::mt19937 random(5);
    const std::array lines{"", "  a\xC3\xA9", "\tDim x '-- y", "<p>b</p>", " "};
    constexpr std::array<std::pair<Command, Command>, 4> opposites{{{toggleScript, toggleScript},
        {togglePage, togglePage}, {moveUp, moveDown}, {duplicatedLines, deletedLines}}};
    for (int i = 0; i < 500; ++i) {
        std::string text = lines[random() % lines.size()];
        for (auto count = random() % 5; count > 0; --count)
            text += std::string("\r\n") + lines[random() % lines.size()];
        MemorySurface document(text);
        const auto place
            = [&] { return lineStart(document, static_cast<Offset>(random() % (text.size() + 1))); };
        const auto [there, back] = opposites[random() % opposites.size()];
        const auto first = place();
        const auto second = place();
        document.Select({std::min(first, second), std::max(first, second)});
        if (run(document, there) && run(document, back)) {
            ASSERT_EQ(document.Text(), text) << i;
        }
    }
}

TEST(LineEdits, FindTheEndsOfALineOutOfReach)
{
    const std::string far(static_cast<std::size_t>(2 * keyReach), 'x');
    const std::string text = "a\r\n \t" + far + '\r' + far + '\n' + far + "\r\nb";
    MemorySurface document;
    document.LoadText(text);
    for (const auto position :
        {std::size_t{1}, std::size_t{4}, far.size(), 3 * far.size(), text.size() - 3, text.size()}) {
        const auto end = std::min(text.find('\r', position), text.size());
        EXPECT_EQ(lineEnd(document, static_cast<Offset>(position)), static_cast<Offset>(end)) << position;
        const auto start = text.substr(0, position).rfind('\n') + 1;
        EXPECT_EQ(lineStart(document, static_cast<Offset>(position)), static_cast<Offset>(start)) << position;
    }
    EXPECT_EQ(indentationBefore(document, 3 + keyReach), " \t");
}

} // namespace
} // namespace kevra
