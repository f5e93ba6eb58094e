// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/stored_settings.h"

#include "fakes/desktop.h"
#include "fakes/shell.h"
#include "settings/setting_access.h"

#include <gtest/gtest.h>

#include <functional>

namespace kevra {
namespace {

struct Options {
    FakeSettingsStore store;
    DocumentState document;
    ApplicationState application;
    OptionsShown shown;
    FakeShell shell;
    StoredSettings settings{store, document, application, shown, shell};

    void loadAll()
    {
        settings.loadTempFolder();
        settings.loadExternalProgram();
        settings.loadFonts();
        settings.loadEditorGeometry();
        settings.loadPanelType();
        settings.loadCodeColour();
        settings.loadPadGeometry();
        settings.loadComments();
        settings.loadLineDebug();
        settings.loadIfCheck();
        settings.loadAutosave();
        settings.loadFsoMenu();
    }
};

TEST(StoredSettings, FreshStoreHasEveryDefault)
{
    Options o;
    o.loadAll();
    EXPECT_TRUE(o.document.colourCoding && o.shown.zcol && o.shell.toolView.colourCoding);
    EXPECT_EQ(o.document.codeColour, colours::defaultCode);
    EXPECT_TRUE(o.document.ifChecking && o.shown.zif);
    EXPECT_TRUE(o.document.fsoMenu && o.shown.zpop && o.shell.toolView.fsoMenu);
    EXPECT_TRUE(o.document.snippetComments && o.shown.zcom);
    EXPECT_TRUE(o.document.lineDebugOn && o.document.lineDebugPreferred && o.shown.zldebug);
    EXPECT_TRUE(o.shell.toolView.lineDebugging);
    EXPECT_FALSE(o.application.autosaveOn || o.shown.zauto || o.shell.toolView.autosave);
    EXPECT_EQ(o.application.autosaveMinutes, 0);
    EXPECT_EQ(o.application.tempFolder, R"(C:\My Documents)");
    EXPECT_EQ(o.application.programPath, "none");
    EXPECT_EQ(o.shell.toolView.programMenu, "EXE");
    EXPECT_EQ(o.document.fontFace, "Courier New");
    EXPECT_EQ(o.document.fontSize, "10");
    EXPECT_EQ(o.shell.mainState, WindowState::Maximised);
    EXPECT_EQ(o.shell.toolView.scriptToolsShown, 0);
    EXPECT_EQ(o.application.padGeometry, (TwipRect{0, 4500, 12000, 4500}));
    EXPECT_TRUE(o.settings.loadFirstStart());
}

TEST(StoredSettings, StoredTextsMeanWhatTheyAlwaysMeant)
{
    using Check = std::function<bool(const Options &)>;
    const auto codeColour = [](std::uint32_t value) -> Check {
        return [value](const Options &o) { return o.document.codeColour == Colour{value}; };
    };
    const struct {
        SettingKey key;
        const char *value;
        Check holds;
    } cases[] = {
        {keys::ifCheck, "YES", [](const Options &o) { return o.document.ifChecking; }},
        {keys::ifCheck, "maybe", [](const Options &o) { return !o.document.ifChecking && !o.shown.zif; }},
        {keys::comments, "no", [](const Options &o) { return !o.document.snippetComments && !o.shown.zcom; }},
        {keys::fsoMenu, "No", [](const Options &o) { return !o.document.fsoMenu && !o.shown.zpop; }},
        {keys::colourCoding, "No",
            [](const Options &o) { return !o.document.colourCoding && !o.shown.zcol; }},
        {keys::colourCoding, "maybe", [](const Options &o) { return o.document.colourCoding; }},
        {keys::codeColour, "255", codeColour(255)},
        {keys::codeColour, "0", codeColour(0xFF0000)},
        {keys::codeColour, "blue", codeColour(0xFF0000)},
        {keys::codeColour, "-5", codeColour(0xFF0000)},
        {keys::codeColour, "99999999999", codeColour(0xFF0000)},
        {keys::lineDebug, "no",
            [](const Options &o) { return !o.document.lineDebugOn && !o.document.lineDebugPreferred; }},
        {keys::tempFolder, R"(D:\site\)",
            [](const Options &o) { return o.application.tempFolder == R"(D:\site)"; }},
        {keys::programPath, "NONE", [](const Options &o) { return o.application.programPath == "none"; }},
        {keys::programPath, "/bin/ed",
            [](const Options &o) { return o.application.programPath == "/bin/ed"; }},
        {keys::programMenu, "Gimp", [](const Options &o) { return o.shell.toolView.programMenu == "Gimp"; }},
        {keys::fontFace, "tahoma",
            [](const Options &o) { return o.shell.facePosition == 3 && o.document.fontFace == "Tahoma"; }},
        {keys::fontFace, "Georgia",
            [](const Options &o) { return o.shell.facePosition == 4 && o.document.fontFace == "Georgia"; }},
        {keys::fontSize, "8", [](const Options &o) { return o.shell.sizePosition == 0; }},
        {keys::fontSize, "11",
            [](const Options &o) { return o.shell.sizePosition == 3 && o.shown.fontSize == "11"; }},
        {keys::panelType, "1", [](const Options &o) { return o.shell.toolView.scriptToolsShown == 0; }},
        {keys::panelType, "2", [](const Options &o) { return o.shell.toolView.scriptToolsShown == 1; }},
        {keys::panelType, "7", [](const Options &o) { return o.shell.toolView.scriptToolsShown == 1; }},
        {keys::padTop, "-30", [](const Options &o) { return o.application.padGeometry.top == -30; }},
        {keys::padTop, "12x", [](const Options &o) { return o.application.padGeometry.top == 4500; }},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.key.name) + " = " + c.value);
        Options o;
        writeSetting(o.store, c.key, c.value);
        o.loadAll();
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
        {"yes", "5", true, true, 5},
        {"YES", "5", true, true, 5},
        {"yes", "0", false, true, 0},
        {"yes", "soon", false, true, 0},
        {"yes", "-3", false, true, 0},
        {"no", "5", false, false, 5},
        {"none", "5", false, false, 5},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.autosave) + ", " + c.minutes);
        Options o;
        writeSetting(o.store, keys::autosave, c.autosave);
        writeSetting(o.store, keys::autosaveMinutes, c.minutes);
        o.settings.loadAutosave();
        EXPECT_EQ(o.application.autosaveOn, c.on);
        EXPECT_EQ(o.shell.toolView.autosave, c.on);
        EXPECT_EQ(o.shell.timerMinutes, c.on ? c.interval : 0);
        EXPECT_EQ(o.shown.zauto, c.lamp);
        EXPECT_EQ(o.shown.autosaveMinutes, c.interval);
    }
}

TEST(StoredSettings, TheMainWindowComesBackWhereItWas)
{
    Options o;
    o.shell.mainGeometry = {-15, 300, 9000, 6000};
    o.settings.saveEditorGeometry();
    o.shell.mainGeometry = {};
    o.settings.loadEditorGeometry();
    EXPECT_EQ(o.shell.mainGeometry, (TwipRect{-15, 300, 9000, 6000}));

    writeSetting(o.store, keys::editorWidth, "wide");
    o.shell.mainGeometry = {1, 2, 3333, 4};
    o.settings.loadEditorGeometry();
    EXPECT_EQ(o.shell.mainGeometry, (TwipRect{-15, 300, 3333, 6000})) << "what is no number stays as it is";

    o.shell.mainState = WindowState::Minimised;
    o.settings.saveEditorGeometry();
    EXPECT_EQ(o.settings.read(keys::editorState), "2");
    o.settings.loadEditorGeometry();
    EXPECT_EQ(o.shell.mainState, WindowState::Maximised);
}

TEST(StoredSettings, ThePadKeepsItsPlaceUnlessItIsMaximised)
{
    Options o;
    o.application.padGeometry = {1, 2, 3, 4};
    o.application.padState = PadState::Other;
    o.settings.savePadGeometry();
    EXPECT_TRUE(o.store.values.empty());
    o.application.padState = PadState::Normal;
    o.settings.savePadGeometry();
    o.settings.loadPadGeometry();
    EXPECT_EQ(o.application.padGeometry, (TwipRect{1, 2, 3, 4}));
}

TEST(StoredSettings, CleaningLeavesOnlyTheProgramsOwn)
{
    Options o;
    o.settings.savePanelType();
    const auto own = o.store.values;
    o.store.saveSetting("kevraed", "settings", "font", "Arial");
    o.store.saveSetting("kevra28", "elsewhere", "a", "b");
    o.settings.cleanOldSettings();
    EXPECT_EQ(o.store.values, own);
}

} // namespace
} // namespace kevra
