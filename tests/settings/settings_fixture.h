// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/memory_surface.h"
#include "fakes/desktop.h"
#include "fakes/dialogs.h"
#include "fakes/files.h"
#include "fakes/messages.h"
#include "fakes/processes.h"
#include "fakes/shell.h"
#include "settings/keys.h"
#include "settings/settings_commands.h"

namespace kevra {

class FakeSettingsEffects : public SettingsEffects {
public:
    void colourForTools() override { done.emplace_back("colour"); }
    void removeColours() override { done.emplace_back("remove colours"); }
    void reapplyFont() override { done.emplace_back("font"); }

    std::vector<std::string> done;
};

/// The settings commands with everything around them in memory; the store starts empty.
struct SettingsFixture {
    SettingsFixture() { load(); }

    /// Loads all settings, as at the start of the program.
    void load()
    {
        using Load = void (SettingsPersistence::*)();
        for (const Load part :
            {&SettingsPersistence::loadTempFolder, &SettingsPersistence::loadExternalProgram,
                &SettingsPersistence::loadFonts, &SettingsPersistence::loadEditorGeometry,
                &SettingsPersistence::loadPanelType, &SettingsPersistence::loadCodeColour,
                &SettingsPersistence::loadPadGeometry, &SettingsPersistence::loadComments,
                &SettingsPersistence::loadLineDebug, &SettingsPersistence::loadIfCheck,
                &SettingsPersistence::loadAutosave, &SettingsPersistence::loadFsoMenu})
            (settings.*part)();
    }

    [[nodiscard]] std::string stored(const SettingKey &key) const { return readSetting(store, key); }

    FakeSettingsStore store;
    EditorOptions editorOptions;
    DocumentState document{editorOptions};
    ApplicationState application;
    OptionsShown options;
    FakeShell views;
    SettingsPersistence settings{store, editorOptions, application, options, views};
    MemorySurface text{"<B>"};
    FakeSettingsEffects effects;
    FakeFileStore files;
    FakeMessages messages;
    FakeFileDialogs fileDialogs;
    FakeColourDialog colourDialog;
    FakeProcessStart processes;
    ExternalProgram program{{application, store, files, processes, views.toolView, messages}};
    SettingsCommands commands{{store, editorOptions, application, options, views, {text, document}, effects,
        files, messages, fileDialogs, colourDialog, program}};
};

} // namespace kevra
