// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "colour/document_colouring.h"
#include "desktop/process_start_qt.h"
#include "settings/settings_dialog.h"

namespace kevra {
namespace {

/// The settings, and the external program that is set there.
class SettingsWiring : private SettingsEffects {
public:
    SettingsWiring(Application &app, Document &document)
        : m_app(app)
        , m_colouring(document)
        , m_program(
              {app.applicationState, app.settingsStore, app.files, m_processes, app.toolSets(), app.messages})
        , m_commands({app.settingsStore, app.editorOptions, app.applicationState, app.optionsShown,
              app.settingsViews(), document, *this, app.files, app.messages, app.fileDialogs,
              app.colourDialog, m_program})
    {
    }

    void bind()
    {
        m_app.makesWindow(SecondaryWindow::Settings,
            [this] { return new SettingsDialog(m_commands, &m_app.mainWindow()); });
        m_app.commands.bind("msettings", [this] {
            dynamic_cast<SettingsDialog &>(m_app.window(SecondaryWindow::Settings)).showSettings();
        });
        m_app.commands.bind("mauto", [this] { m_commands.toggleAutosave(); });
        m_app.commands.bind("mfsoset", [this] { m_commands.toggleFsoMenu(); });
        m_app.commands.bind("mex", [this] { m_program.RunExternalProgram(); });
    }

private:
    void colourForTools() override { m_colouring.colourForTools(); }
    void removeColours() override { m_colouring.removeColours(); }
    void reapplyFont() override { m_app.toolSets().reapplyFont(); }

    Application &m_app;
    DocumentColouring m_colouring;
    ProcessStartQt m_processes;
    ExternalProgram m_program;
    SettingsCommands m_commands;
};

} // namespace

void wireSettings(Application &app, WindowDocument &shown)
{
    app.keep<SettingsWiring>(app, shown.document).bind();
}

} // namespace kevra
