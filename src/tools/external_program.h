// SPDX-License-Identifier: GPL-3.0-or-later
// The one other program the user can hang on the menu bar: choosing it, naming it, starting it. Reading the
// two stored values at start is left to the settings loaders.
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

/// What the commands for the external program work on; everything outlives them.
struct ExternalProgramParts {
    ApplicationState &state;
    SettingsStore &settings;
    const FileStore &files;
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
    /// Whether a file's name says that it is a program.
    [[nodiscard]] bool isProgram(const std::string &path) const;
    /// For a file dialog: where programs have a name of their own kind, that one, else every name.
    [[nodiscard]] std::string namePattern() const { return m_parts.processes.namePattern(); }

private:
    ExternalProgramParts m_parts;
};

} // namespace kevra
