// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/typing_colouring.h"

#include "colour/marks_of.h"
#include "colour/recolouring.h"
#include "fakes/document_state.h"
#include "fakes/marked_text.h"
#include "fakes/views.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

struct Fixture {
    explicit Fixture(std::string_view text)
        : document(text)
        , typing({document, state}, view, [this](TextRange line) { checked.push_back(line); })
    {
    }

    void type(std::string_view keys)
    {
        for (const char key : keys) {
            typing.keyTyped(static_cast<unsigned char>(key));
            document.SetSelText(key == '\r' ? std::string_view("\r\n") : std::string_view(&key, 1));
            if (key == '\r')
                typing.keyReleased(keys::enter);
        }
    }

    MemorySurface document;
    FakeDocumentState state;
    FakeMainView view;
    std::vector<TextRange> checked;
    TypingColouring typing;
};

TEST(TypingColouring, PaintsTagsAsTheyAreTyped)
{
    struct {
        const char *name;
        std::string before;
        std::string_view keys;
        std::string_view after;
        std::string_view marks;
    } const cases[] = {
        {"a whole tag", "|", "<b>x", "<b>x", "ccc-"},
        {"closing a tag", "<B|", ">", "<B>", "ccc"},
        {"a new tag right after the last", "|", "<b><i", "<b><i", "ccccc"},
        {"text after a tag and a new tag", "|", "<b>x<i>", "<b>x<i>", "ccc-ccc"},
        {"opening before text that a > closes", "|b> x", "<", "<b> x", "ccc--"},
        {"another < comes first", "|b <i>", "<", "<b <i>", "c-----"},
        {"no > follows", "|b", "<", "<b", "c-"},
        {"a > without a tag", "ab|", ">", "ab>", "--c"},
        {"the last tag is closed already", "<b>text|", ">", "<b>text>", "-------c"},
        {"a > right before the caret is ignored", "<b>|", ">", "<b>>", "cccc"},
        {"the second character", "<|", ">", "<>", "-c"},
        {"over a selection", "<b[old]>", "<", "<b<>", "--cc"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        Fixture fixture("");
        loadMarked(fixture.document, c.before);
        fixture.type(c.keys);
        EXPECT_EQ(fixture.document.Text(), c.after);
        EXPECT_EQ(marksOf(fixture.document), c.marks);
    }
}

TEST(TypingColouring, ColoursAScriptLineAtReturn)
{
    Fixture fixture("If a\r\n");
    fixture.state.scriptTools = true;
    fixture.document.SetSelStart(6);
    fixture.type("If x = \"then\" Then");
    EXPECT_EQ(marksOf(fixture.document), std::string(24, '-'));
    fixture.type("\rEnd If '--x\r");
    EXPECT_EQ(marksOf(fixture.document), "------cc------------cccc--cccccc-gggg--");
    EXPECT_EQ(fixture.document.SelStart(), fixture.document.TextLength());
    EXPECT_EQ(fixture.checked, (std::vector<TextRange>{{6, 26}, {26, 39}}));
    EXPECT_EQ(fixture.view.lineNumberSyncs, 2);
}

TEST(TypingColouring, TypesInTheColourAroundTheCaret)
{
    struct {
        const char *name;
        std::string text;
        Colour typed;
    } const cases[] = {
        {"inside a tag", "<b|>", colours::defaultCode},
        {"right after a tag", "<b>|x", colours::black},
        {"in the text", "<b>x|", colours::black},
        {"at the start", "|<b>", colours::black},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        Fixture fixture("");
        auto &document = fixture.document;
        loadMarked(document, c.text);
        recolourTags(document, {0, document.TextLength()}, colours::defaultCode);
        document.SetTypingColor(colours::fault);
        fixture.typing.caretPlaced();
        EXPECT_EQ(document.TypingColor(), c.typed);
        document.SetTypingColor(colours::fault);
        fixture.typing.edited({document.SelStart(), document.SelStart()}, EditKind::Undo);
        EXPECT_EQ(document.TypingColor(), c.typed) << "after undo";
    }
}

/// The run of a tag longer than the text before it depends on how much text that is.
TEST(TypingColouring, AnEditNearTheStartShiftsColoursBehindIt)
{
    Fixture fixture("<p><q><aaaaaaaaaaaaaaaaaa<bb>");
    recolourTags(fixture.document, {0, fixture.document.TextLength()}, colours::defaultCode);
    fixture.document.Replace({3, 3}, "x");
    fixture.typing.edited({3, 4}, EditKind::Paste);
    EXPECT_EQ(marksOf(fixture.document), marksOfWholePass(fixture.document.Text(), false));
}

TEST(TypingColouring, LeavesDocumentsWithoutColouringAlone)
{
    Fixture fixture("x");
    fixture.state.colourApplies = false;
    fixture.type("<b>");
    EXPECT_EQ(marksOf(fixture.document), "----");
    fixture.state.scriptTools = true;
    fixture.state.lineDebugOn = false;
    fixture.type("sub\r");
    EXPECT_EQ(marksOf(fixture.document), "---------");
    EXPECT_TRUE(fixture.checked.empty());
}

} // namespace
} // namespace kevra
