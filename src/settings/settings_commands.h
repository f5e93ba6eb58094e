// SPDX-License-Identifier: GPL-3.0-or-later
// What the controls of the settings dialog do. Every change is written to the store and put in force at once;
// nothing waits for the dialog to close but the font, which is then given to the document.
#pragma once

#include "desktop/file_dialogs.h"
#include "desktop/messages.h"
#include "editor/surface.h"
#include "settings/options.h"
#include "settings/options_shown.h"
#include "settings/stored_settings.h"
#include "tools/external_program.h"

#include <optional>
#include <string>

namespace kevra {

/// What a change of settings does to the document, as the main window's own commands do it.
class SettingsEffects {
public:
    virtual ~SettingsEffects() = default;
    virtual void colourForTools() = 0; ///< the pass that goes with the tool set shown
    virtual void removeColours() = 0;
    /// Gives face and size of the main window's boxes to the document.
    virtual void reapplyFont() = 0;
};

/// What the commands work on; everything outlives them.
struct SettingsParts {
    SettingsStore &store;
    DocumentState &document;
    ApplicationState &application;
    OptionsShown &options;
    SettingsViews &views;
    EditorSurface &text;
    SettingsEffects &effects;
    const FileStore &files;
    Messages &messages;
    FileDialogs &fileDialogs;
    ColourDialog &colourDialog;
    ExternalProgram &program;
};

class SettingsCommands {
public:
    explicit SettingsCommands(const SettingsParts &parts)
        : m_parts(parts)
    {
    }

    void setOption(Option option, bool on);
    /// Autosave from now on or no longer, without storing it.
    void toggleAutosave();
    void toggleFsoMenu();

    /// A folder as bytes; it must exist.
    void setTempFolder(const std::string &folder);
    /// Whole minutes as text.
    void setInterval(const std::string &minutes);
    void setFontFace(const std::string &face);
    void setFontSize(const std::string &size);

    void chooseColour();
    void applyColour();
    /// The colour chosen and not yet applied, else the code colour.
    [[nodiscard]] Colour shownColour() const;
    [[nodiscard]] bool hasChosenColour() const { return m_chosenColour.has_value(); }

    /// The program the user picked, when it is one.
    [[nodiscard]] std::optional<std::string> browseProgram();
    [[nodiscard]] ExternalProgram &program() { return m_parts.program; }

    void dialogClosed();

    /// False while what was last set holds for this run alone.
    [[nodiscard]] bool isStored() const { return m_parts.store.isStored(); }
    [[nodiscard]] const OptionsShown &options() const { return m_parts.options; }
    [[nodiscard]] const ApplicationState &application() const { return m_parts.application; }

private:
    void runAutosave(bool on);
    void switchColours(bool on);
    void colourDocument();
    [[nodiscard]] bool refuseAutosave();

    SettingsParts m_parts;
    std::optional<Colour> m_chosenColour;
};

} // namespace kevra
