// SPDX-License-Identifier: GPL-3.0-or-later
// Loads every stored option, or its default, into the program's state and its controls, and saves what is
// stored only when the program ends. The settings dialog stores its own options.
#pragma once

#include "desktop/geometry.h"
#include "desktop/main_view.h"
#include "document/application_state.h"
#include "editor/editor_options.h"
#include "settings/keys.h"
#include "settings/options_shown.h"
#include "storage/settings_store.h"

#include <string>

namespace kevra {

/// The main window's font boxes. Selecting an entry applies it to the document as a user's choice would.
class FontBoxes {
public:
    virtual ~FontBoxes() = default;
    virtual void selectFace(int position) = 0; ///< from 0
    virtual void selectSize(int position) = 0;
    [[nodiscard]] virtual std::string face() const = 0;
    [[nodiscard]] virtual std::string size() const = 0; ///< points, as text
};

enum class WindowState { Normal, Maximised, Minimised };

/// A window's position and size, in twips.
class WindowPlacement {
public:
    virtual ~WindowPlacement() = default;
    [[nodiscard]] virtual WindowState windowState() const = 0;
    [[nodiscard]] virtual TwipRect normalGeometry() const = 0;
    [[nodiscard]] virtual TwipRect innerArea() const = 0;
    virtual void maximise() = 0;
    /// Moves the window onto an existing screen if necessary.
    virtual void placeNormal(const TwipRect &geometry) = 0;
};

class AutosaveTimer {
public:
    virtual ~AutosaveTimer() = default;
    virtual void start(int minutes) = 0;
    virtual void stop() = 0;
};

/// The parts of the main window that settings change. The window is created when one of them is first used.
class SettingsViews {
public:
    virtual ~SettingsViews() = default;
    virtual ToolView &tools() = 0;
    virtual FontBoxes &fonts() = 0;
    virtual WindowPlacement &placement() = 0;
    virtual AutosaveTimer &autosaveTimer() = 0;
};

class SettingsPersistence {
public:
    SettingsPersistence(SettingsStore &store, EditorOptions &editorOptions, ApplicationState &application,
        OptionsShown &optionsShown, SettingsViews &views);

    [[nodiscard]] std::string read(const SettingKey &key) const;
    void write(const SettingKey &key, std::string_view value);

    void loadTempFolder();
    void loadExternalProgram();
    void loadFonts();
    void loadEditorGeometry();
    void loadPanelType();
    void loadCodeColour();
    void loadPadGeometry();
    void loadComments();
    void loadLineDebug();
    void loadIfCheck();
    void loadAutosave();
    void loadFsoMenu();
    /// True when the program has never been started before.
    [[nodiscard]] bool loadFirstStart() const;

    void saveEditorGeometry();
    void savePadGeometry();
    void savePanelType(bool scriptTools);
    void saveFirstStartDone();
    /// Removes the settings of two older versions of the program.
    void cleanOldSettings();

private:
    bool load(Option option); ///< into the state, its lamp and its marks
    [[nodiscard]] int number(const SettingKey &key, int fallback) const;
    void writeNumber(const SettingKey &key, int value);

    SettingsStore &m_store;
    EditorOptions &m_editorOptions;
    ApplicationState &m_application;
    OptionsShown &m_optionsShown;
    SettingsViews &m_views;
};

} // namespace kevra
