// SPDX-License-Identifier: GPL-3.0-or-later
// What start-up and the quit path do to the program's windows and files.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kevra {

/// The windows beside the main one, in the order they are unloaded. Each is made when it is first asked for.
enum class SecondaryWindow {
    Browser,
    MessageBoxReference,
    Information,
    ImageViewer,
    Settings,
    Find,
    Pad,
    MultiFind,
};
inline constexpr std::array secondaryWindows{SecondaryWindow::Browser, SecondaryWindow::MessageBoxReference,
    SecondaryWindow::Information, SecondaryWindow::ImageViewer, SecondaryWindow::Settings,
    SecondaryWindow::Find, SecondaryWindow::Pad, SecondaryWindow::MultiFind};

/// The files' side of a run of the program.
class SessionFiles {
public:
    virtual ~SessionFiles() = default;
    virtual void openFromCommandLine(const std::string &commandLine) = 0;
    virtual void offerRecovery() = 0;
    virtual void saveAs() = 0;
    /// The user said that the text is not wanted any more.
    virtual void textGivenUp() = 0;
    /// The program is about to end: what nobody was asked about has to be safe afterwards. False when it can
    /// be kept nowhere and the user stays.
    [[nodiscard]] virtual bool keepUnsavedText() = 0;
    virtual void deletePreviewPage() = 0;
    virtual void deleteAutosave() = 0;
};

class ShellWindows {
public:
    virtual ~ShellWindows() = default;
    /// Does not wait; the window has the focus afterwards.
    virtual void showMainWindow() = 0;
    /// The information window with the notices of the first start; does not wait.
    virtual void showFirstStartNotices() = 0;
    virtual void stopAutosaveTimer() = 0;
    virtual void unloadMainWindow() = 0;
    virtual void unloadWindow(SecondaryWindow window) = 0;
    virtual void endProgram() = 0;
    [[nodiscard]] virtual SessionFiles &sessionFiles() = 0; ///< of the main window
};

} // namespace kevra
