// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/quit.h"

#include <utility>

namespace kevra {

Quit::Quit(EditedDocument document, ApplicationState &application, SettingsPersistence &settings,
    Messages &messages, ShellWindows &windows)
    : m_document(document)
    , m_application(application)
    , m_settings(settings)
    , m_messages(messages)
    , m_windows(windows)
{
}

bool Quit::confirmed(const char *question)
{
    return m_messages.show({question, Icon::Question, Buttons::YesNo, "Quit?"}) == Answer::Yes;
}

void Quit::clearFlags()
{
    m_application.helpShowing = false;
    m_application.vbsInfoShowing = false;
    m_document.state.unsaved = false;
}

void Quit::requestQuit()
{
    if (m_application.helpShowing) {
        if (!confirmed("You're closing the program from Help. Is that what you want to do?"))
            return;
    } else if (m_application.vbsInfoShowing) {
        if (!confirmed("You're closing the program. Is that what you want to do?"))
            return;
    }
    if (m_document.state.unsaved)
        return promptSaveCurrentText();
    if (!m_windows.sessionFiles().keepUnsavedText())
        return;
    clearFlags();
    end();
}

void Quit::closeRequested()
{
    if (m_document.surface.TextLength() > 0)
        return requestQuit();
    m_document.state.unsaved = false;
    shutdown();
}

void Quit::promptSaveCurrentText()
{
    switch (m_messages.show({"Save current text?", Icon::Question, Buttons::YesNoCancel})) {
    case Answer::Yes:
        m_windows.sessionFiles().saveAs();
        return shutdown();
    case Answer::No:
        m_document.state.unsaved = false;
        m_windows.sessionFiles().textGivenUp();
        return shutdown();
    default:
        return;
    }
}

void Quit::shutdown()
{
    if (!m_ended && m_windows.sessionFiles().keepUnsavedText())
        end();
}

void Quit::endAtSignal()
{
    m_windows.sessionFiles().keepForNextStart();
    end();
}

void Quit::end()
{
    if (std::exchange(m_ended, true))
        return;
    m_windows.stopAutosaveTimer();
    auto &files = m_windows.sessionFiles();
    files.removePreviewPage();
    files.removeAutosave();
    m_settings.savePadGeometry();
    m_settings.saveEditorGeometry();
    m_settings.savePanelType(m_document.state.scriptTools);
    m_windows.unloadMainWindow();
    for (const auto window : secondaryWindows)
        m_windows.unloadWindow(window);
    m_windows.exitEventLoop();
}

} // namespace kevra
