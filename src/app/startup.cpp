// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/startup.h"

namespace kevra {

void checkTempFolder(const ApplicationState &application, const FileReader &files, Messages &messages)
{
    if (!files.folderExists(application.tempFolder))
        messages.inform("The setting for the Webpage Temp Folder, " + application.tempFolder
            + ", is pointing to a non-existent folder and needs to be changed in Options -- Settings.");
}

Startup::Startup(DocumentState &document, ApplicationState &application, SettingsPersistence &settings,
    ShellWindows &windows)
    : m_document(document)
    , m_application(application)
    , m_settings(settings)
    , m_windows(windows)
{
}

void Startup::run(std::string commandLine)
{
    m_application.commandLine = std::move(commandLine);
    loadWindowSettings();
    m_windows.showMainWindow();
    loadOptions();
    resetState();
    m_windows.sessionFiles().openFromCommandLine(m_application.commandLine);
    greetAtFirstStart();
    m_windows.sessionFiles().offerRecovery();
}

void Startup::loadWindowSettings()
{
    m_settings.loadTempFolder();
    m_settings.loadExternalProgram();
    m_settings.loadFonts();
    m_settings.loadEditorGeometry();
    m_settings.loadPanelType();
}

void Startup::loadOptions()
{
    m_settings.loadCodeColour();
    m_settings.loadPadGeometry();
    m_settings.loadComments();
    m_settings.loadLineDebug();
    m_settings.loadIfCheck();
    m_settings.loadAutosave();
    m_settings.loadFsoMenu();
}

void Startup::resetState()
{
    m_application.helpShowing = false;
    m_application.previewFresh = true;
    m_application.vbsInfoShowing = false;
    m_application.fontFaceChanged = false;
    m_document.colourApplies = true;
    m_document.busyLoadingOrSaving = false;
    m_document.lineDebugOn = m_document.options.lineDebug;
}

void Startup::greetAtFirstStart()
{
    if (!m_settings.loadFirstStart())
        return;
    m_windows.showFirstStartNotices();
    m_settings.saveFirstStartDone();
    m_settings.cleanOldSettings();
}

} // namespace kevra
