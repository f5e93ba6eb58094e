// SPDX-License-Identifier: GPL-3.0-or-later
// The composition root: owns the documents, ports, windows and commands, and connects them.
#pragma once

#include "app/command_registry.h"
#include "app/main_window.h"
#include "app/quit.h"
#include "app/shell_ports.h"
#include "app/startup.h"
#include "app/tool_sets.h"
#include "app/window_document_qt.h"
#include "desktop/clipboard_qt.h"
#include "desktop/file_dialogs_qt.h"
#include "desktop/messages_qt.h"
#include "desktop/program_folders_qt.h"
#include "document/application_state.h"
#include "settings/options_shown.h"
#include "settings/settings_persistence.h"
#include "settings/settings_store_qt.h"
#include "storage/backup_store_posix.h"
#include "storage/file_store_posix.h"

#include <QtCore/QTimer>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kevra {

class Application : private SettingsViews, private ShellWindows {
public:
    /// `programFolders` says where the autosave file and the recovery records are kept.
    explicit Application(ProgramFolders programFolders);
    ~Application() override;
    Application(const Application &) = delete;
    Application &operator=(const Application &) = delete;

    /// Runs the start-up; afterwards the event loop takes over, unless hasEnded().
    void start(std::string commandLine);
    [[nodiscard]] bool hasEnded() const { return m_quit && m_quit->hasEnded(); }

    // State and ports, for the wiring of the subsystems.
    ApplicationState applicationState;
    EditorOptions editorOptions;
    OptionsShown optionsShown;
    CommandRegistry commands;
    SettingsStoreQt settingsStore;
    MessagesQt messages;
    FileDialogsQt fileDialogs;
    ColourDialogQt colourDialog;
    ClipboardQt clipboard;
    ProgramFolders folders;
    BackupStorePosix backups{folders.autosave + "/backups"};
    FileStorePosix files{folders.autosave + "/recovery", documentsFolder()};
    QTimer timer1; ///< autosave; wireFiles connects it
    /// Checks the script line that Return has ended; set by wireChecker.
    std::function<void(TextRange line)> checkFinishedLine;
    /// Deletes the preview page, if there is one; set by wirePreview.
    std::function<void()> removePreviewPage;
    /// Offers a dropped file before it is opened as a document; true if it was taken. Set by wireImages.
    std::function<bool(const std::string &path)> takesDroppedFile;
    /// Outlines the elements at these positions in the page beside the text; set by wireBeside.
    std::function<void(const std::vector<Offset> &places)> outlineBroken;

    [[nodiscard]] WindowDocument &shown() { return *m_documents.front(); } ///< in the main window
    [[nodiscard]] MainWindow &mainWindow(); ///< created on first use
    [[nodiscard]] ToolSets &toolSets();
    [[nodiscard]] Quit &quit();
    /// Creates the main window if necessary.
    [[nodiscard]] SessionFiles &sessionFiles() override;
    /// Set by wireFiles; must live as long as the main window.
    void setSessionFiles(SessionFiles &sessionFiles) { m_sessionFiles = &sessionFiles; }
    [[nodiscard]] AutosaveTimer &autosaveTimer() override;
    [[nodiscard]] SettingsViews &settingsViews() { return *this; }

    /// Creates a command object that lives as long as the windows.
    template <typename T, typename... Arguments> T &keep(Arguments &&...arguments)
    {
        auto object = std::make_shared<T>(std::forward<Arguments>(arguments)...);
        m_kept.push_back(object);
        return *object;
    }

    /// Sets how a window is made on first use, so that the start does not wait for it. The application owns
    /// it.
    void makesWindow(SecondaryWindow window, std::function<QWidget *()> make);
    [[nodiscard]] QWidget &window(SecondaryWindow window);
    [[nodiscard]] QWidget *visibleWindow(SecondaryWindow window) const; ///< null if it is not visible
    void showWindow(SecondaryWindow window); ///< brought to the front, not modal

private:
    ToolView &tools() override { return toolSets(); }
    FontBoxes &fonts() override;
    WindowPlacement &placement() override { return mainWindow(); }

    void showMainWindow() override;
    void showFirstStartNotices() override;
    void stopAutosaveTimer() override { timer1.stop(); }
    void unloadMainWindow() override;
    void unloadWindow(SecondaryWindow window) override;
    void exitEventLoop() override;

    void createMainWindow();

    std::vector<std::unique_ptr<WindowDocument>> m_documents;
    SettingsPersistence m_settings;
    std::unique_ptr<AutosaveTimer> m_autosaveTimer;
    std::unique_ptr<MainWindow> m_mainWindow;
    std::unique_ptr<ToolSets> m_toolSets;
    std::unique_ptr<Quit> m_quit;
    SessionFiles *m_sessionFiles = nullptr;
    std::map<SecondaryWindow, std::function<QWidget *()>> m_makers;
    std::map<SecondaryWindow, std::unique_ptr<QWidget>> m_windows;
    std::vector<std::shared_ptr<void>> m_kept;
};

} // namespace kevra
