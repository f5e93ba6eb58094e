// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/types.h"

#include <QtWidgets/QWidget>

#include <functional>
#include <string>

class QFrame;
class QHBoxLayout;
class QLineEdit;
class QPushButton;

namespace kevra {

/// Fills the patch with a colour.
void showColourIn(QWidget &patch, Colour colour);
/// The layout of a panel's controls, which are in one row.
[[nodiscard]] QHBoxLayout *panelRow(QWidget &frame);
/// A colour patch for a panel, black at first.
[[nodiscard]] QFrame *colourPatch(const char *name, QWidget *parent);

/// The contents of the frame `fr1`: the colour sampled in the viewed image, its size and path.
class ImagePanel {
public:
    struct Hooks {
        std::function<void()> copyColour;
        std::function<void()> copyTag;
    };

    /// The controls belong to `frame`.
    ImagePanel(QWidget &frame, const Hooks &hooks);

    void enableTag(bool on);
    void showSizeAndPath(const std::string &size, const std::string &path);
    void showSample(Colour colour, const std::string &code);
    [[nodiscard]] std::string sampleCode() const;

private:
    QFrame *m_sample;
    QLineEdit *m_code;
    QLineEdit *m_size;
    QLineEdit *m_path;
    QPushButton *m_tag;
};

} // namespace kevra
