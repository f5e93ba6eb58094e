// SPDX-License-Identifier: GPL-3.0-or-later
// The external program that the user can add to the menu bar: choosing, naming and starting it. The settings
// loaders read the two stored values at start-up.
#pragma once

#include "desktop/main_view.h"
#include "desktop/messages.h"
#include "desktop/process_start.h"
#include "document/application_state.h"
#include "storage/file_store.h"
#include "storage/settings_store.h"

#include <string>
#include <string_view>

namespace kevra {

/// The caption of `mex` in the toolkit's notation: the first character is the access key, and every "&" of
/// the text itself is doubled so that it is shown.
[[nodiscard]] std::string programMenuCaption(std::string_view text);

/// What the commands for the external program use; all of it must outlive them.
struct ExternalProgramParts {
    ApplicationState &application;
    SettingsStore &settings;
    const FileReader &files;
    ProcessStart &processes;
    ToolView &tools;
    Messages &messages;
};

class ExternalProgram {
public:
    explicit ExternalProgram(const ExternalProgramParts &parts)
        : m_parts(parts)
    {
    }

    void RunExternalProgram();
    /// `path` as typed or chosen, in bytes.
    void SetExternalProgram(const std::string &path);
    void RemoveExternalProgram();
    /// At most eight characters, stored as typed.
    void SetExternalMenuText(const std::string &text);
    /// Whether a file is a program: by its extension, or, without one, if the system can run it.
    [[nodiscard]] bool isProgram(const std::string &path) const;
    /// For a file dialog: the pattern of program names on this system, or of all names.
    [[nodiscard]] std::string namePattern() const { return m_parts.processes.namePattern(); }

private:
    ExternalProgramParts m_parts;
};

} // namespace kevra
