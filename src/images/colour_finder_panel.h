// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "images/colour_finder_commands.h"

class QFrame;
class QLineEdit;
class QWidget;

namespace kevra {

/// The contents of the frame `frcol`, which owns the controls.
class ColourFinderPanel : private ColourFinderView {
public:
    ColourFinderPanel(QWidget &frame, EditorSurface &surface, ColourDialog &dialog, Messages &messages,
        Clipboard &clipboard);

    [[nodiscard]] ColourFinderCommands &commands() { return m_commands; }

private:
    void showPanel(bool on) override;
    [[nodiscard]] std::string typedCode() const override;
    [[nodiscard]] Colour shownColour() const override { return m_colour; }
    void showColour(Colour colour, const std::string &code) override;
    [[nodiscard]] std::string shownCode() const override;

    QWidget &m_frame;
    ColourFinderCommands m_commands;
    QLineEdit *m_typed;
    QLineEdit *m_code;
    QFrame *m_patch;
    Colour m_colour;
};

} // namespace kevra
