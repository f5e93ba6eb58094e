// SPDX-License-Identifier: GPL-3.0-or-later
// Quitting the program: the questions, and the steps after they are answered.
#pragma once

#include "app/shell_ports.h"
#include "desktop/messages.h"
#include "document/application_state.h"
#include "editor/document_state.h"
#include "settings/settings_persistence.h"

namespace kevra {

class Quit {
public:
    Quit(EditedDocument document, ApplicationState &application, SettingsPersistence &settings,
        Messages &messages, ShellWindows &windows);

    void requestQuit();
    /// The main window is closed by its frame or the menu. Asks nothing if there is no text. The caller must
    /// not close the window; shutdown() does when the program ends.
    void closeRequested();
    void promptSaveCurrentText();
    /// Ends the program, unless its text cannot be kept and the user chooses to stay.
    void shutdown();
    /// Asks nothing, because nobody may be there: an unsaved text is kept for the next start if possible.
    void endAtSignal();
    [[nodiscard]] bool hasEnded() const { return m_ended; }

private:
    [[nodiscard]] bool confirmed(const char *question);
    void clearFlags();
    void end();

    EditedDocument m_document;
    ApplicationState &m_application;
    SettingsPersistence &m_settings;
    Messages &m_messages;
    ShellWindows &m_windows;
    bool m_ended = false;
};

} // namespace kevra
