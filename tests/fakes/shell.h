// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/shell_ports.h"
#include "fakes/views.h"
#include "settings/settings_persistence.h"

#include <string>
#include <vector>

namespace kevra {

using CallLog = std::vector<std::string>;

/// Fake windows, files and parts of the main window, which log their calls.
class FakeShell : public ShellWindows,
                  public SessionFiles,
                  public SettingsViews,
                  public FontBoxes,
                  public WindowPlacement,
                  public AutosaveTimer {
public:
    void showMainWindow() override { note("show main"); }
    void showFirstStartNotices() override { note("notices"); }
    void stopAutosaveTimer() override { note("stop timer"); }
    void unloadMainWindow() override { note("unload main"); }
    void unloadWindow(SecondaryWindow window) override { note("unload", static_cast<int>(window)); }
    void exitEventLoop() override { note("end"); }
    SessionFiles &sessionFiles() override { return *this; }

    void openFromCommandLine(const std::string &commandLine) override { note("open " + commandLine); }
    void offerRecovery() override { note("offer recovery"); }
    void saveAs() override { note("save as"); }
    void textGivenUp() override { note("text given up"); }
    bool keepUnsavedText() override
    {
        note("keep text");
        return keepsText;
    }
    void keepForNextStart() override { note("keep for next start"); }
    void removePreviewPage() override { note("delete preview"); }
    void removeAutosave() override { note("delete autosave"); }

    ToolView &tools() override
    {
        note("use main window");
        return toolView;
    }
    FontBoxes &fonts() override { return *this; }
    WindowPlacement &placement() override { return *this; }
    AutosaveTimer &autosaveTimer() override { return *this; }

    void selectFace(int position) override { facePosition = position; }
    void selectSize(int position) override { sizePosition = position; }
    std::string face() const override { return "Courier New"; }
    std::string size() const override { return "10"; }

    WindowState windowState() const override { return mainState; }
    TwipRect normalGeometry() const override { return mainGeometry; }
    TwipRect innerArea() const override { return {0, 0, 12000, 9000}; }
    void maximise() override
    {
        mainState = WindowState::Maximised;
        note("maximise");
    }
    void placeNormal(const TwipRect &geometry) override
    {
        mainState = WindowState::Normal;
        mainGeometry = geometry;
    }

    void start(int minutes) override { timerMinutes = minutes; }
    void stop() override { timerMinutes = 0; }

    CallLog log;
    bool keepsText = true;
    FakeToolView toolView;
    WindowState mainState = WindowState::Normal;
    TwipRect mainGeometry{100, 200, 3000, 4000};
    int facePosition = -1;
    int sizePosition = -1;
    int timerMinutes = -1;

private:
    void note(std::string call) { log.push_back(std::move(call)); }
    void note(const char *call, int which) { log.push_back(call + (" " + std::to_string(which))); }
};

} // namespace kevra
