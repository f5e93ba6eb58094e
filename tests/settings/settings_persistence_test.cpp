// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_persistence.h"

#include "settings/settings_fixture.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(SettingsPersistence, FreshStoreHasEveryDefault)
{
    SettingsFixture o;
    const auto &d = o.editorOptions;
    EXPECT_TRUE(d.colourCoding && d.ifChecking && d.fsoMenu && d.snippetComments && d.lineDebug);
    EXPECT_FALSE(o.application.autosaveOn);
    EXPECT_EQ(d.codeColour, colours::defaultCode);
    EXPECT_EQ(o.application.tempFolder, R"(C:\My Documents)");
    EXPECT_EQ(o.application.programPath + o.views.toolView.programMenu, "noneEXE");
    EXPECT_EQ(o.options.fontFace + o.options.fontSize, "Courier New10");
    EXPECT_EQ(o.views.mainState, WindowState::Maximised);
    EXPECT_EQ(o.views.toolView.scriptToolsShown, 0);
    EXPECT_EQ(o.application.padGeometry, (TwipRect{0, 4500, 12000, 4500}));
}

TEST(SettingsPersistence, StoredTextsMeanWhatTheyAlwaysMeant)
{
    using Fixture = const SettingsFixture &;
    constexpr auto blue = [](Fixture o) { return o.editorOptions.codeColour == Colour{0xFF0000}; };
    const struct {
        SettingKey key;
        const char *value;
        bool (*holds)(Fixture);
    } cases[] = {
        {{optionsSection, "ifif", ""}, "YES", [](Fixture o) { return o.editorOptions.ifChecking; }},
        {{optionsSection, "ifif", ""}, "maybe",
            [](Fixture o) { return !o.editorOptions.ifChecking && !o.options.lamps[Option::IfChecking]; }},
        {{optionsSection, "ifcolor", ""}, "No", [](Fixture o) { return !o.editorOptions.colourCoding; }},
        {{optionsSection, "ifcolor", ""}, "maybe", [](Fixture o) { return o.editorOptions.colourCoding; }},
        {keys::codeColour, "blue", blue},
        {keys::codeColour, "-5", blue},
        {keys::codeColour, "99999999999", blue},
        {keys::codeColour, "16777216", blue},
        {keys::tempFolder, R"(D:\site\)", [](Fixture o) { return o.application.tempFolder == R"(D:\site)"; }},
        {keys::programPath, "NONE", [](Fixture o) { return o.application.programPath == "none"; }},
        {keys::fontFace, "tahoma",
            [](Fixture o) { return o.views.facePosition == 3 && o.options.fontFace == "Tahoma"; }},
        {keys::fontFace, "Georgia",
            [](Fixture o) { return o.views.facePosition == 4 && o.options.fontFace == "Georgia"; }},
        {keys::fontSize, "11",
            [](Fixture o) { return o.views.sizePosition == 3 && o.options.fontSize == "11"; }},
        {keys::panelType, "1", [](Fixture o) { return o.views.toolView.scriptToolsShown == 0; }},
        {keys::panelType, "7", [](Fixture o) { return o.views.toolView.scriptToolsShown == 1; }},
        {keys::padTop, "-30", [](Fixture o) { return o.application.padGeometry.top == -30; }},
        {keys::padTop, "12x", [](Fixture o) { return o.application.padGeometry.top == 4500; }},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.key.name) + " = " + c.value);
        SettingsFixture o;
        writeSetting(o.store, c.key, c.value);
        o.load();
        EXPECT_TRUE(c.holds(o));
    }
}

TEST(SettingsPersistence, AutosaveNeedsItsFlagAndAnInterval)
{
    const struct {
        const char *autosave;
        const char *minutes;
        bool on;
        bool lamp;
        int interval;
    } cases[] = {
        {"YES", "5", true, true, 5},
        {"yes", "0", false, true, 0},
        {"yes", "-3", false, true, 0},
        {"none", "5", false, false, 5},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.autosave) + ", " + c.minutes);
        SettingsFixture o;
        writeSetting(o.store, {optionsSection, "autosave", ""}, c.autosave);
        writeSetting(o.store, keys::autosaveMinutes, c.minutes);
        o.load();
        EXPECT_EQ(o.application.autosaveOn, c.on);
        EXPECT_EQ(o.views.toolView.options[Option::Autosave], c.on);
        EXPECT_EQ(o.views.timerMinutes, c.on ? c.interval : 0);
        EXPECT_EQ(o.options.lamps[Option::Autosave], c.lamp);
        EXPECT_EQ(o.options.autosaveMinutes, c.interval);
    }
}

TEST(SettingsPersistence, TheWindowsComeBackWhereTheyWere)
{
    SettingsFixture o;
    o.views.mainState = WindowState::Normal;
    o.views.mainGeometry = {-15, 300, 9000, 6000};
    o.settings.saveEditorGeometry();
    writeSetting(o.store, keys::editorWidth, "wide");
    o.views.mainGeometry = {1, 2, 3333, 4};
    o.settings.loadEditorGeometry();
    EXPECT_EQ(o.views.mainGeometry, (TwipRect{-15, 300, 3333, 6000})) << "what is no number stays as it is";

    o.views.mainState = WindowState::Minimised;
    o.settings.saveEditorGeometry();
    o.settings.loadEditorGeometry();
    EXPECT_EQ(o.views.mainState, WindowState::Maximised);

    o.application.padGeometry = {1, 2, 3, 4};
    o.settings.savePadGeometry();
    o.application.padState = PadState::Other;
    o.application.padGeometry = {};
    o.settings.savePadGeometry();
    o.settings.loadPadGeometry();
    EXPECT_EQ(o.application.padGeometry, (TwipRect{1, 2, 3, 4})) << "maximised, its place is not stored";
}

TEST(SettingsPersistence, CleaningLeavesOnlyTheProgramsOwn)
{
    SettingsFixture o;
    o.settings.savePanelType(false);
    const auto own = o.store.values;
    o.store.saveSetting("kevraed", "settings", "font", "Arial");
    o.store.saveSetting("kevra28", "elsewhere", "a", "b");
    o.settings.cleanOldSettings();
    EXPECT_EQ(o.store.values, own);
}

} // namespace
} // namespace kevra
