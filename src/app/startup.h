// SPDX-License-Identifier: GPL-3.0-or-later
// The steps between the program's start and the event loop, in their fixed order.
#pragma once

#include "app/shell_ports.h"
#include "desktop/messages.h"
#include "document/application_state.h"
#include "editor/document_state.h"
#include "settings/settings_persistence.h"
#include "storage/file_store.h"

#include <string>

namespace kevra {

/// Reports if the folder for preview pages of unsaved work does not exist.
void checkTempFolder(const ApplicationState &application, const FileReader &files, Messages &messages);

class Startup {
public:
    Startup(DocumentState &document, ApplicationState &application, SettingsPersistence &settings,
        ShellWindows &windows);

    void run(std::string commandLine);

private:
    void loadWindowSettings();
    void loadOptions();
    void resetState();
    void greetAtFirstStart();

    DocumentState &m_document;
    ApplicationState &m_application;
    SettingsPersistence &m_settings;
    ShellWindows &m_windows;
};

} // namespace kevra
