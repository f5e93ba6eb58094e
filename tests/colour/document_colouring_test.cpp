// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/document_colouring.h"
#include "colour/marks_of.h"
#include "editor/memory_surface.h"
#include "fakes/document_state.h"

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
        {"a long first tag is taken from its inner <", false, "<a <b>", "--cccc"},
        {"a comment ends at its first >", false, "--<!-- a>b -->", "--ccccccc-----"},
        {"literals stay black", true, "If a Then MsgBox \"end if\"", "cc---cccc-cccccc---------"},
        {"endif is no keyword", true, "dim endif", "ccc------"},
        {"a next after a dot", true, "ax.Next", "-------"},
        {"next at the very start ends the pass", true, "Next: if '--x", "cccc---------"},
        {"placeholder with its brackets", true, "f(<<path if>>)", "--ooooooooooo-"},
        {"separator comment to the line's end", true, "x '--if\r\nif", "--ggggg--cc"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        MemorySurface document(c.text);
        FakeDocumentState state;
        state.scriptTools = c.script;
        document.SetSelStart(3);
        document.SetSelColor(colours::fault);
        DocumentColouring({document, state}).colourForTools();
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
    FakeDocumentState state;
    state.unsaved = true;
    DocumentColouring({document, state}).colourTags();
    EXPECT_EQ(marksOf(document), "rrr-ccc");
    EXPECT_FALSE(state.unsaved);
    EXPECT_FALSE(state.programmaticChange);
}

} // namespace
} // namespace kevra
