// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tool_sets.h"

#include "app/edit_commands.h"
#include "editor/memory_surface.h"
#include "fakes/document_state.h"
#include "fakes/shell.h"

#include <gtest/gtest.h>

#include <map>

namespace kevra {
namespace {

class FakeShellView : public ShellView {
public:
    void setControlVisible(std::string_view control, bool on) override { state[std::string(control)] = on; }
    void setItemVisible(std::string_view item, bool on) override { state[std::string(item)] = on; }
    void setItemChecked(std::string_view item, bool on) override { checked[std::string(item)] = on; }
    void setItemCaption(std::string_view, std::string_view) override { }
    void setButtonVisible(int number, bool on) override { state["button " + std::to_string(number)] = on; }
    void setButtonImage(int number, int image) override { images[number] = image; }

    std::map<std::string, bool> state;
    std::map<std::string, bool> checked;
    std::map<int, int> images;
};

struct Tools {
    MemorySurface document{"Dim a"};
    MemorySurface numbers;
    FakeDocumentState state;
    FakeShellView view;
    FakeShell shell;
    ToolSets tools{{document, state}, numbers, view, shell};
};

TEST(ToolSets, ShowingAgainStartsWithTheFirstPanel)
{
    Tools t;
    t.tools.showWebTools();
    t.view.state["Frame1"] = false;
    t.view.state["Frame2"] = true; // swapped in by its button
    t.tools.hideTools();
    EXPECT_FALSE(t.view.state["Frame2"]);
    t.tools.showTools();
    EXPECT_TRUE(t.view.state["Frame1"] && !t.view.state["frscript1"]);
    t.tools.showScriptTools();
    t.tools.hideTools();
    t.tools.showTools();
    EXPECT_TRUE(!t.view.state["Frame1"] && t.view.state["frscript1"] && t.state.scriptTools);
}

TEST(ToolSets, StatesAreShownByChecksAndPictures)
{
    Tools t;
    t.tools.showOption(Option::LineDebug, true);
    EXPECT_TRUE(t.view.checked["mdodebug"] && !t.view.checked["mnodebug"]);
    t.tools.showOption(Option::Autosave, false);
    EXPECT_EQ(t.view.images, (std::map<int, int>{{23, 15}, {24, 20}, {26, 18}}));
    t.tools.showOption(Option::LineDebug, false);
    t.tools.showOption(Option::Autosave, true);
    EXPECT_EQ(t.view.images, (std::map<int, int>{{23, 19}, {24, 16}, {26, 17}}));
}

TEST(ToolSets, AChosenFontGoesWhereItBelongs)
{
    Tools t;
    const EditorFont chosen{"Courier New", 10};
    const EditorFont other{"Arial", 8};
    int recoloured = 0;
    t.tools.onFontChanged([&] { ++recoloured; });
    t.document.SetFont(other);
    t.numbers.SetFont(other);
    t.document.SetSelStart(3);
    t.tools.fontChosen();
    EXPECT_EQ(t.document.Font(), chosen);
    EXPECT_EQ(t.document.SelStart(), 0) << "the whole text was selected and let go";
    EXPECT_EQ(t.numbers.Font(), other) << "the column is not shown";
    t.state.scriptTools = true;
    t.state.colourApplies = false;
    t.tools.fontChosen();
    EXPECT_EQ(t.numbers.Font(), chosen);
    EXPECT_EQ(recoloured, 1) << "only where colours apply";
}

TEST(EditCommands, WordWrapTwiceIsAsBefore)
{
    MemorySurface document("some text");
    FakeShellView view;
    FakeDocumentState state;
    EditCommands edit({document, state}, view);
    for (const int margin : {0, noWrapMargin}) {
        edit.toggleWrap();
        EXPECT_EQ(document.RightMargin(), margin);
        EXPECT_EQ(view.checked["mwrap"], margin == 0);
    }
}

} // namespace
} // namespace kevra
