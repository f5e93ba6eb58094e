// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the settings dialog. Every change is stored and takes effect at once, except the font,
// which is applied when the dialog closes.
#pragma once

#include "desktop/file_dialogs.h"
#include "desktop/messages.h"
#include "editor/document_state.h"
#include "settings/options.h"
#include "settings/options_shown.h"
#include "settings/settings_persistence.h"
#include "tools/external_program.h"

#include <optional>
#include <string>

namespace kevra {

/// The main window's commands that a settings change runs on the document.
class SettingsEffects {
public:
    virtual ~SettingsEffects() = default;
    virtual void colourForTools() = 0; ///< runs the colouring pass of the current tool set
    virtual void removeColours() = 0;
    /// Applies the main window's font boxes to the document.
    virtual void reapplyFont() = 0;
};

/// What the commands work on; all of it must outlive them.
struct SettingsParts {
    SettingsStore &store;
    EditorOptions &editorOptions;
    ApplicationState &application;
    OptionsShown &optionsShown;
    SettingsViews &views;
    EditedDocument document;
    SettingsEffects &effects;
    const FileReader &files;
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
    /// Turns autosave on or off for this run, without storing it.
    void toggleAutosave();
    void toggleFsoMenu();

    /// `folder` is file system bytes; it must exist.
    void setTempFolder(const std::string &folder);
    /// Whole minutes as text.
    void setInterval(const std::string &minutes);
    void setFontFace(const std::string &face);
    void setFontSize(const std::string &size);

    void chooseCodeColour();
    void applyColour();
    /// The colour chosen and not yet applied, else the code colour.
    [[nodiscard]] Colour shownColour() const;
    [[nodiscard]] bool hasChosenColour() const { return m_chosenColour.has_value(); }

    /// The file that the user picked, if it is a program.
    [[nodiscard]] std::optional<std::string> browseProgram();
    [[nodiscard]] ExternalProgram &program() { return m_parts.program; }

    void dialogClosed();

    /// False if the last change could not be stored and holds only for this run.
    [[nodiscard]] bool isStored() const { return m_parts.store.isStored(); }
    [[nodiscard]] const OptionsShown &optionsShown() const { return m_parts.optionsShown; }
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
