// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/stored_settings.h"

#include "settings/settings_desk.h"

#include <gtest/gtest.h>

#include <functional>

namespace kevra {
namespace {

TEST(StoredSettings, FreshStoreHasEveryDefault)
{
    FreshDesk o;
    EXPECT_TRUE(o.document.colourCoding && o.options.zcol && o.views.toolView.colourCoding);
    EXPECT_EQ(o.document.codeColour, colours::defaultCode);
    EXPECT_TRUE(o.document.ifChecking && o.options.zif);
    EXPECT_TRUE(o.document.fsoMenu && o.options.zpop && o.views.toolView.fsoMenu);
    EXPECT_TRUE(o.document.snippetComments && o.options.zcom);
    EXPECT_TRUE(o.document.lineDebugOn && o.document.lineDebugPreferred && o.options.zldebug);
    EXPECT_TRUE(o.views.toolView.lineDebugging);
    EXPECT_FALSE(o.application.autosaveOn || o.options.zauto || o.views.toolView.autosave);
    EXPECT_EQ(o.application.tempFolder, R"(C:\My Documents)");
    EXPECT_EQ(o.application.programPath, "none");
    EXPECT_EQ(o.views.toolView.programMenu, "EXE");
    EXPECT_EQ(o.document.fontFace, "Courier New");
    EXPECT_EQ(o.document.fontSize, "10");
    EXPECT_EQ(o.views.mainState, WindowState::Maximised);
    EXPECT_EQ(o.views.toolView.scriptToolsShown, 0);
    EXPECT_EQ(o.application.padGeometry, (TwipRect{0, 4500, 12000, 4500}));
    EXPECT_TRUE(o.settings.loadFirstStart());
}

TEST(StoredSettings, StoredTextsMeanWhatTheyAlwaysMeant)
{
    using Check = std::function<bool(const SettingsDesk &)>;
    const auto codeColour = [](std::uint32_t value) -> Check {
        return [value](const auto &o) { return o.document.codeColour == Colour{value}; };
    };
    const struct {
        SettingKey key;
        const char *value;
        Check holds;
    } cases[] = {
        {keys::ifCheck, "YES", [](const auto &o) { return o.document.ifChecking; }},
        {keys::ifCheck, "maybe", [](const auto &o) { return !o.document.ifChecking && !o.options.zif; }},
        {keys::colourCoding, "No", [](const auto &o) { return !o.document.colourCoding; }},
        {keys::colourCoding, "maybe", [](const auto &o) { return o.document.colourCoding; }},
        {keys::codeColour, "0", codeColour(0xFF0000)},
        {keys::codeColour, "blue", codeColour(0xFF0000)},
        {keys::codeColour, "-5", codeColour(0xFF0000)},
        {keys::codeColour, "99999999999", codeColour(0xFF0000)},
        {keys::tempFolder, R"(D:\site\)",
            [](const auto &o) { return o.application.tempFolder == R"(D:\site)"; }},
        {keys::programPath, "NONE", [](const auto &o) { return o.application.programPath == "none"; }},
        {keys::fontFace, "tahoma",
            [](const auto &o) { return o.views.facePosition == 3 && o.document.fontFace == "Tahoma"; }},
        {keys::fontFace, "Georgia",
            [](const auto &o) { return o.views.facePosition == 4 && o.document.fontFace == "Georgia"; }},
        {keys::fontSize, "11",
            [](const auto &o) { return o.views.sizePosition == 3 && o.options.fontSize == "11"; }},
        {keys::panelType, "1", [](const auto &o) { return o.views.toolView.scriptToolsShown == 0; }},
        {keys::panelType, "7", [](const auto &o) { return o.views.toolView.scriptToolsShown == 1; }},
        {keys::padTop, "-30", [](const auto &o) { return o.application.padGeometry.top == -30; }},
        {keys::padTop, "12x", [](const auto &o) { return o.application.padGeometry.top == 4500; }},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.key.name) + " = " + c.value);
        FreshDesk o;
        writeSetting(o.store, c.key, c.value);
        o.load();
        EXPECT_TRUE(c.holds(o));
    }
}

TEST(StoredSettings, AutosaveNeedsItsFlagAndAnInterval)
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
        {"yes", "soon", false, true, 0},
        {"yes", "-3", false, true, 0},
        {"none", "5", false, false, 5},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.autosave) + ", " + c.minutes);
        FreshDesk o;
        writeSetting(o.store, keys::autosave, c.autosave);
        writeSetting(o.store, keys::autosaveMinutes, c.minutes);
        o.load();
        EXPECT_EQ(o.application.autosaveOn, c.on);
        EXPECT_EQ(o.views.toolView.autosave, c.on);
        EXPECT_EQ(o.views.timerMinutes, c.on ? c.interval : 0);
        EXPECT_EQ(o.options.zauto, c.lamp);
        EXPECT_EQ(o.options.autosaveMinutes, c.interval);
    }
}

TEST(StoredSettings, TheWindowsComeBackWhereTheyWere)
{
    FreshDesk o;
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

TEST(StoredSettings, CleaningLeavesOnlyTheProgramsOwn)
{
    FreshDesk o;
    o.settings.savePanelType();
    const auto own = o.memory.values;
    o.store.saveSetting("kevraed", "settings", "font", "Arial");
    o.store.saveSetting("kevra28", "elsewhere", "a", "b");
    o.settings.cleanOldSettings();
    EXPECT_EQ(o.memory.values, own);
}

} // namespace
} // namespace kevra
