// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_commands.h"

#include "settings/settings_fixture.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(SettingsCommands, AutosaveNeedsAnInterval)
{
    SettingsFixture fixture;
    fixture.commands.setOption(Option::Autosave, true);
    fixture.commands.toggleAutosave();
    EXPECT_EQ(fixture.messages.texts(),
        std::vector<std::string>(
            2, "The time interval for Autosave must be set above zero before default Autosave can be set."));
    EXPECT_EQ(fixture.messages.shown[0].icon, Icon::Information);
    EXPECT_EQ(fixture.stored(rowOf(Option::Autosave).key), "none");
    EXPECT_FALSE(fixture.options.lamps[Option::Autosave]);

    fixture.commands.setInterval("15");
    fixture.commands.toggleAutosave();
    EXPECT_EQ(fixture.views.timerMinutes, 15);
    EXPECT_EQ(fixture.stored(rowOf(Option::Autosave).key), "none") << "switched for now alone";
    fixture.commands.setInterval("5");
    EXPECT_EQ(fixture.views.timerMinutes, 5) << "a running timer takes the new period";
    fixture.commands.setInterval("0");
    EXPECT_EQ(fixture.views.timerMinutes, 0);
    EXPECT_FALSE(fixture.views.toolView.options[Option::Autosave]);
}

TEST(SettingsCommands, TempFolderMustExist)
{
    constexpr auto noFolder = "The path is wrong. There's no such folder.";
    struct {
        const char *name;
        std::string typed;
        std::string stored; ///< "none" when nothing is
        const char *message;
    } const cases[] = {
        {"nothing entered", "", "none", ""},
        {"trailing backslash", "C:\\Temp\\", "C:\\Temp", ""},
        {"trailing slash", "/srv/web/", "/srv/web", ""},
        {"two separators lose one", "/srv/web//", "/srv/web/", ""},
        {"the root", "/", "/", ""},
        {"a file", "/srv/page.htm", "none", noFolder},
        {"missing", "/nowhere", "none", noFolder},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        SettingsFixture fixture;
        fixture.files.folders = {"C:\\Temp", "/srv/web", "/srv/web/", "/"};
        fixture.files.files["/srv/page.htm"] = "";
        fixture.commands.setTempFolder(c.typed);
        EXPECT_EQ(fixture.stored(keys::tempFolder), c.stored);
        EXPECT_EQ(fixture.application.tempFolder, c.stored == "none" ? "C:\\My Documents" : c.stored);
        EXPECT_EQ(fixture.messages.last(), c.message);
        EXPECT_TRUE(fixture.messages.shown.empty() || fixture.messages.shown[0].icon == Icon::Critical);
    }
}

TEST(SettingsCommands, ChosenColourWaitsForApply)
{
    struct {
        const char *name;
        std::optional<Colour> chosen;
        bool coloured; ///< the document takes colours
        const char *stored;
        std::vector<std::string> done;
    } const cases[] = {
        {"red, document without colours", Colour{0xFF}, false, "255", {}},
        {"the colour it was", colours::defaultCode, true, "16711680", {"colour"}},
        {"black counts as nothing", colours::black, true, "no", {}},
        {"cancelled", std::nullopt, true, "no", {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        SettingsFixture fixture;
        fixture.document.colourApplies = c.coloured;
        fixture.colourDialog.chosen = c.chosen;
        fixture.commands.chooseCodeColour();
        EXPECT_EQ(fixture.colourDialog.initials, std::vector<Colour>{colours::defaultCode});
        EXPECT_EQ(fixture.editorOptions.codeColour, colours::defaultCode);
        fixture.commands.applyColour();
        EXPECT_FALSE(fixture.commands.hasChosenColour());
        EXPECT_EQ(fixture.stored(keys::codeColour), c.stored);
        EXPECT_EQ(fixture.effects.done, c.done);
    }
    SettingsFixture fixture;
    fixture.colourDialog.chosen = Colour{0xFF};
    fixture.commands.chooseCodeColour();
    fixture.commands.dialogClosed();
    EXPECT_FALSE(fixture.commands.hasChosenColour()) << "not applied, it is not chosen the next time";
}

TEST(SettingsCommands, BrowsingTakesProgramsAlone)
{
    SettingsFixture fixture;
    fixture.fileDialogs.choices = {"C:\\a.bat", "C:\\A.Exe"};
    EXPECT_EQ(fixture.commands.browseProgram(), std::nullopt);
    EXPECT_EQ(fixture.commands.browseProgram(), "C:\\A.Exe");
    EXPECT_EQ(fixture.commands.browseProgram(), std::nullopt) << "cancelled";
}

} // namespace
} // namespace kevra
