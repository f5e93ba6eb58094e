// SPDX-License-Identifier: GPL-3.0-or-later
// Everything between the program's start and the event loop, in its fixed order.
#pragma once

#include "app/shell_ports.h"
#include "editor/document_state.h"
#include "settings/stored_settings.h"

#include <string>

namespace kevra {

class Startup {
public:
    Startup(DocumentState &document, ApplicationState &application, StoredSettings &settings,
        ShellWindows &windows, SessionFiles &files);

    void startup(std::string commandLine);

private:
    void loadWindowSettings();
    void loadOptions();
    void resetState();
    void greetAtFirstStart();

    DocumentState &m_document;
    ApplicationState &m_application;
    StoredSettings &m_settings;
    ShellWindows &m_windows;
    SessionFiles &m_files;
};

} // namespace kevra
