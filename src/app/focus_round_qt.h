// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

class QWidget;

namespace kevra {

/// F6 and Shift+F6 carry the keyboard round the parts of a window, since Tab is a character of the text;
/// Escape brings it back to the first part.
class FocusRound : public QObject {
public:
    /// `parts` in the order of the round, each a control or a frame with controls; owned by the window.
    FocusRound(QWidget &window, const QList<QWidget *> &parts);
    void add(QWidget &part); ///< at the end of the round

private:
    enum class Direction { Forward, Back };
    void move(Direction direction);

    QList<QWidget *> m_parts;
};

} // namespace kevra
