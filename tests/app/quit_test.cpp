// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/quit.h"

#include "editor/memory_surface.h"
#include "fakes/desktop.h"
#include "fakes/document_state.h"
#include "fakes/messages.h"
#include "fakes/shell.h"
#include "settings/keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kevra {
namespace {

struct Running {
    MemorySurface text{"<P>"};
    FakeDocumentState document;
    ApplicationState application;
    OptionsShown shown;
    FakeSettingsStore store;
    FakeMessages messages;
    FakeShell shell;
    SettingsPersistence settings{store, document.options, application, shown, shell};
    Quit quit{{text, document}, application, settings, messages, shell};

    [[nodiscard]] bool did(const char *call) const
    {
        return testing::Value(shell.log, testing::Contains(call));
    }
};

enum class Showing { Text, Help, ScriptInfo };
using enum Answer;
using Answers = std::deque<Answer>;

const Message fromHelp{"You're closing the program from Help. Is that what you want to do?", Icon::Question,
    Buttons::YesNo, "Quit?"};
const Message fromInfo{
    "You're closing the program. Is that what you want to do?", Icon::Question, Buttons::YesNo, "Quit?"};
const Message saveText{"Save current text?", Icon::Question, Buttons::YesNoCancel, "KEVRA Editor"};

TEST(Quit, EveryBranchOfTheConversation)
{
    const struct {
        const char *name;
        Showing showing;
        bool unsaved;
        Answers answers;
        std::vector<Message> asked;
        bool ends;
        const char *becomesOfTheText = "";
    } cases[] = {
        {"nothing to save", Showing::Text, false, {}, {}, true},
        {"unsaved, save it", Showing::Text, true, {Yes}, {saveText}, true, "save as"},
        {"unsaved, drop it", Showing::Text, true, {No}, {saveText}, true, "text given up"},
        {"unsaved, go on", Showing::Text, true, {Cancel}, {saveText}, false},
        {"help, stay", Showing::Help, true, {No}, {fromHelp}, false},
        {"help, leave", Showing::Help, false, {Yes}, {fromHelp}, true},
        {"help, leave and save", Showing::Help, true, {Yes, Yes}, {fromHelp, saveText}, true, "save as"},
        {"help, leave, then go on", Showing::Help, true, {Yes, Cancel}, {fromHelp, saveText}, false},
        {"info, stay", Showing::ScriptInfo, false, {No}, {fromInfo}, false},
        {"info, leave, drop", Showing::ScriptInfo, true, {Yes, No}, {fromInfo, saveText}, true,
            "text given up"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        Running run;
        run.application.helpShowing = c.showing == Showing::Help;
        run.application.vbsInfoShowing = c.showing == Showing::ScriptInfo;
        run.document.unsaved = c.unsaved;
        run.messages.answers = c.answers;
        run.quit.closeRequested();
        EXPECT_EQ(run.messages.shown, c.asked);
        EXPECT_EQ(run.quit.hasEnded(), c.ends);
        for (const auto *call : {"save as", "text given up"})
            EXPECT_EQ(run.did(call), std::string_view(call) == c.becomesOfTheText);
        if (!c.ends) {
            EXPECT_TRUE(run.shell.log.empty());
            EXPECT_EQ(run.document.unsaved, c.unsaved);
            EXPECT_EQ(run.application.helpShowing, c.showing == Showing::Help);
        }
    }
}

TEST(Quit, StaysWhenTheTextCanBeKeptNowhere)
{
    for (const bool unsaved : {false, true}) {
        Running run;
        run.shell.keepsText = false;
        run.application.helpShowing = true;
        run.document.unsaved = unsaved;
        run.messages.answers = {Yes, Yes};
        run.quit.requestQuit();
        EXPECT_FALSE(run.quit.hasEnded());
        EXPECT_TRUE(run.application.helpShowing);
        EXPECT_EQ(run.document.unsaved, unsaved);
        EXPECT_FALSE(run.did("stop timer"));
        run.quit.endAtSignal(); // it asks nobody
        EXPECT_TRUE(run.did("keep for next start"));
        EXPECT_TRUE(run.quit.hasEnded());
    }
}

TEST(Quit, AnEmptyEditorIsClosedWithoutAQuestion)
{
    Running run;
    run.text.LoadText("");
    run.document.unsaved = run.application.helpShowing = true;
    run.quit.closeRequested();
    EXPECT_TRUE(run.messages.shown.empty());
    EXPECT_TRUE(run.quit.hasEnded());
    EXPECT_FALSE(run.document.unsaved);
}

TEST(Quit, ShutdownTidiesUpInOrderAndOnce)
{
    Running run;
    run.document.scriptTools = true;
    run.quit.shutdown();
    run.quit.shutdown();
    EXPECT_THAT(run.shell.log,
        testing::ElementsAre("keep text", "stop timer", "delete preview", "delete autosave", "unload main",
            "unload 0", "unload 1", "unload 2", "unload 3", "unload 4", "unload 5", "unload 6", "unload 7",
            "end"));
    EXPECT_EQ(readSetting(run.store, keys::panelType), "2");
    EXPECT_EQ(readSetting(run.store, keys::editorState), "0");
    EXPECT_EQ(readSetting(run.store, keys::padTop), "0");
}

} // namespace
} // namespace kevra
