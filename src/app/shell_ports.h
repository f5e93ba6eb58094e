// SPDX-License-Identifier: GPL-3.0-or-later
// The program's windows and files as start-up and Quit need them.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kevra {

/// The windows other than the main one, in the order in which they are unloaded. Each is made on first use.
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

/// The document's files at start-up and shutdown.
class SessionFiles {
public:
    virtual ~SessionFiles() = default;
    virtual void openFromCommandLine(const std::string &commandLine) = 0;
    virtual void offerRecovery() = 0;
    virtual void saveAs() = 0;
    /// The user chose not to save the text.
    virtual void textGivenUp() = 0;
    /// Keeps text that the user was not asked about before the program ends. False if it cannot be kept and
    /// the user chooses to stay.
    [[nodiscard]] virtual bool keepUnsavedText() = 0;
    /// The same without a question, whether or not it can be kept.
    virtual void keepForNextStart() = 0;
    virtual void removePreviewPage() = 0;
    virtual void removeAutosave() = 0;
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
    virtual void exitEventLoop() = 0;
    [[nodiscard]] virtual SessionFiles &sessionFiles() = 0; ///< of the main window
};

} // namespace kevra
