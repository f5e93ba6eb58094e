// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/views.h"
#include "settings/stored_settings.h"

#include <optional>
#include <string>

namespace kevra {

class FakeFontBoxes : public FontBoxes {
public:
    void selectFace(int position) override { facePosition = position; }
    void selectSize(int position) override { sizePosition = position; }
    std::string face() const override { return std::to_string(facePosition); }
    std::string size() const override { return std::to_string(sizePosition); }

    int facePosition = -1;
    int sizePosition = -1;
};

class FakeWindowPlacement : public WindowPlacement {
public:
    WindowState windowState() const override { return state; }
    TwipRect normalGeometry() const override { return geometry; }
    TwipRect innerArea() const override { return inner; }
    void maximise() override { state = WindowState::Maximised; }
    void placeNormal(const TwipRect &place) override
    {
        state = WindowState::Normal;
        geometry = place;
    }

    WindowState state = WindowState::Normal;
    TwipRect geometry;
    TwipRect inner;
};

class FakeAutosaveTimer : public AutosaveTimer {
public:
    void start(int every) override { minutes = every; }
    void stop() override { minutes.reset(); }

    std::optional<int> minutes; ///< empty while stopped
};

class FakeSettingsViews : public SettingsViews {
public:
    ToolView &tools() override { return toolView; }
    FontBoxes &fonts() override { return fontBoxes; }
    WindowPlacement &placement() override { return window; }
    AutosaveTimer &autosaveTimer() override { return timer; }

    FakeToolView toolView;
    FakeFontBoxes fontBoxes;
    FakeWindowPlacement window;
    FakeAutosaveTimer timer;
};

} // namespace kevra
