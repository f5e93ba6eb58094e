// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>

class QDockWidget;
class QMainWindow;

namespace kevra {

/// Keeps a dock at the side as wide as the user has made it, as far as the window leaves room for the text.
class DockWidth : public QObject {
    Q_OBJECT

public:
    /// `chosen` in pixels; 0 for half of the window.
    DockWidth(QMainWindow &window, QDockWidget &dock, int chosen);

signals:
    void chosen(int width); ///< by the user, some time ago

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void fit();
    void settle();

    QMainWindow &m_window;
    QDockWidget &m_dock;
    int m_chosen;
    int m_fitted = 0; ///< the width that the window made of it
    bool m_fitting = false;
    QTimer m_layout;
    QTimer m_settling;
};

} // namespace kevra
