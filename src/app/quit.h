// SPDX-License-Identifier: GPL-3.0-or-later
// The one way out of the program: its questions, and what is done once they are answered.
#pragma once

#include "app/shell_ports.h"
#include "desktop/messages.h"
#include "document/application_state.h"
#include "editor/document_state.h"
#include "editor/surface.h"
#include "settings/stored_settings.h"

namespace kevra {

class Quit {
public:
    Quit(EditorSurface &text, DocumentState &document, ApplicationState &application,
        StoredSettings &settings, Messages &messages, ShellWindows &windows);

    void requestQuit();
    /// The main window is closed by its frame, or by the menu: without any text nothing is asked. The window
    /// itself must not close; when the program ends, shutdown() closes it.
    void closeMainWindow();
    void promptSaveCurrentText();
    /// Ends the program unless its text can be kept nowhere and the user stays.
    void shutdown();
    void endProgram(); ///< asks nothing
    [[nodiscard]] bool hasEnded() const { return m_ended; }

private:
    [[nodiscard]] bool confirmed(const char *question);
    void clearFlags();

    EditorSurface &m_text;
    DocumentState &m_document;
    ApplicationState &m_application;
    StoredSettings &m_settings;
    Messages &m_messages;
    ShellWindows &m_windows;
    bool m_ended = false;
};

} // namespace kevra
