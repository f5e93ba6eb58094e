// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/document_colouring.h"
#include "colour/marks_of.h"
#include "editor/memory_surface.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(DocumentColouring, PaintsPagesAndScripts)
{
    struct {
        const char *name;
        bool script;
        std::string_view text;
        std::string_view marks;
    } const cases[] = {
        {"nothing", false, "", ""},
        {"tags and words", false, "abc <b>bold</b> def", "----ccc----cccc----"},
        {"unclosed at the end", false, "<p>x < y", "ccc-----"},
        {"a > inside an address ends the tag", false, "..<a href=\"x>y\">", "--ccccccccccc---"},
        {"a long first tag is taken from its inner <", false, "<a <b>", "--cccc"},
        {"a comment ends at its first >", false, "--<!-- a>b -->", "--ccccccc-----"},
        {"literals stay black", true, "If a Then MsgBox \"end if\"", "cc---cccc-cccccc---------"},
        {"endif is no keyword", true, "dim endif", "ccc------"},
        {"submit is no sub", true, "Sub Submit", "ccc-------"},
        {"both words of end sub", true, "x = 1\r\nEnd Sub", "-------ccccccc"},
        {"a next behind a dot", true, "ax.Next", "-------"},
        {"an indented next", true, "x\r\n  Next", "-----cccc"},
        {"next at the very start ends the pass", true, "Next: if '--x", "cccc---------"},
        {"placeholder with its brackets", true, "f(<<path if>>)", "--ooooooooooo-"},
        {"separator comment to the line's end", true, "x '--if\r\nif", "--ggggg--cc"},
        {"other comments are coloured as code", true, "' -- not x", "-----ccc--"},
        {"unclosed literal counts as text", true, "x \"if", "---cc"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        MemorySurface document(c.text);
        DocumentState state;
        state.scriptTools = c.script;
        document.SetSelStart(3);
        document.SetSelColor(colours::fault);
        DocumentColouring(document, state).colourForTools();
        EXPECT_EQ(marksOf(document), c.marks);
        EXPECT_EQ(document.Selection(), (TextRange{0, 0}));
        EXPECT_EQ(document.SelColor(), colours::black);
        EXPECT_EQ(document.Text(), c.text);
    }
}

TEST(DocumentColouring, TagsLeaveOtherColoursAndClearUnsaved)
{
    MemorySurface document("red <b>");
    document.Select({0, 3});
    document.SetSelColor(colours::fault);
    document.SetSelStart(7);
    DocumentState state;
    state.unsaved = true;
    DocumentColouring(document, state).colourTags();
    EXPECT_EQ(marksOf(document), "rrr-ccc");
    EXPECT_FALSE(state.unsaved);
    EXPECT_FALSE(state.programmaticChange);
}

} // namespace
} // namespace kevra
