// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_commands.h"

#include "settings/settings_desk.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(SettingsCommands, AutosaveNeedsAnInterval)
{
    SettingsDesk desk;
    desk.commands.setOption(Option::Autosave, true);
    desk.commands.toggleAutosave();
    EXPECT_EQ(desk.messages.texts(),
        std::vector<std::string>(
            2, "The time interval for Autosave must be set above zero before default Autosave can be set."));
    EXPECT_EQ(desk.messages.shown[0].icon, Icon::Information);
    EXPECT_EQ(desk.stored(keys::autosave), "none");
    EXPECT_FALSE(desk.options.zauto);

    desk.commands.setInterval("15");
    desk.commands.toggleAutosave();
    EXPECT_EQ(desk.views.timerMinutes, 15);
    EXPECT_EQ(desk.stored(keys::autosave), "none") << "switched for now alone";
    desk.commands.setInterval("5");
    EXPECT_EQ(desk.views.timerMinutes, 5) << "a running timer takes the new period";
    desk.commands.setInterval("0");
    EXPECT_EQ(desk.views.timerMinutes, 0);
    EXPECT_FALSE(desk.views.toolView.autosave);
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
        SettingsDesk desk;
        desk.files.folders = {"C:\\Temp", "/srv/web", "/srv/web/", "/"};
        desk.files.files["/srv/page.htm"] = "";
        desk.commands.setTempFolder(c.typed);
        EXPECT_EQ(desk.stored(keys::tempFolder), c.stored);
        EXPECT_EQ(desk.application.tempFolder, c.stored == "none" ? "C:\\My Documents" : c.stored);
        EXPECT_EQ(desk.messages.last(), c.message);
        EXPECT_TRUE(desk.messages.shown.empty() || desk.messages.shown[0].icon == Icon::Critical);
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
        SettingsDesk desk;
        desk.document.colourApplies = c.coloured;
        desk.colourDialog.chosen = c.chosen;
        desk.commands.chooseColour();
        EXPECT_EQ(desk.colourDialog.initials, std::vector<Colour>{colours::defaultCode});
        EXPECT_EQ(desk.document.codeColour, colours::defaultCode);
        desk.commands.applyColour();
        EXPECT_FALSE(desk.commands.hasChosenColour());
        EXPECT_EQ(desk.stored(keys::codeColour), c.stored);
        EXPECT_EQ(desk.effects.done, c.done);
    }
}

TEST(SettingsCommands, BrowsingTakesProgramsAlone)
{
    SettingsDesk desk;
    desk.fileDialogs.choices = {"C:\\a.bat", "C:\\A.Exe"};
    EXPECT_EQ(desk.commands.browseProgram(), std::nullopt);
    EXPECT_EQ(desk.commands.browseProgram(), "C:\\A.Exe");
    EXPECT_EQ(desk.commands.browseProgram(), std::nullopt) << "cancelled";
}

} // namespace
} // namespace kevra
