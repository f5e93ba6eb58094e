// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

class QWidget;

namespace kevra {

/// F6 and Shift+F6 move the focus through the parts of a window, since Tab types a tab; Escape returns to the
/// first part.
class FocusRound : public QObject {
public:
    /// `parts` in focus order, each a control or a frame with controls; owned by the window.
    FocusRound(QWidget &window, const QList<QWidget *> &parts);
    void add(QWidget &part); ///< as the last part

private:
    enum class Direction { Forward, Back };
    void move(Direction direction);

    QList<QWidget *> m_parts;
};

} // namespace kevra
