// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/dock_width_qt.h"

#include <QtCore/QEvent>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMainWindow>

#include <algorithm>
#include <chrono>
#include <utility>

namespace kevra {
namespace {

constexpr std::chrono::milliseconds timeToSettle{500};

} // namespace

DockWidth::DockWidth(QMainWindow &window, QDockWidget &dock, int chosen)
    : QObject(&dock)
    , m_window(window)
    , m_dock(dock)
    , m_chosen(chosen)
{
    m_layout.setSingleShot(true);
    m_settling.setSingleShot(true);
    connect(&m_layout, &QTimer::timeout, this, &DockWidth::fit);
    connect(&m_settling, &QTimer::timeout, this, &DockWidth::settle);
    window.installEventFilter(this);
    dock.installEventFilter(this);
}

bool DockWidth::eventFilter(QObject *watched, QEvent *event)
{
    const bool isResize = event->type() == QEvent::Resize;
    // After the layout, which would divide the window by what the parts would like.
    if (event->type() == QEvent::Show || (isResize && watched == &m_window))
        m_layout.start(0);
    else if (isResize)
        m_settling.start(timeToSettle);
    return false;
}

void DockWidth::fit()
{
    if (!m_dock.isVisible())
        return;
    const int whole = m_window.width();
    m_fitting = true;
    m_window.resizeDocks(
        {&m_dock}, {m_chosen > 0 ? std::min(m_chosen, whole * 2 / 3) : whole / 2}, Qt::Horizontal);
    m_settling.start(timeToSettle);
}

void DockWidth::settle()
{
    const int width = m_dock.width();
    if (!std::exchange(m_fitting, false) && width != m_fitted)
        emit chosen(m_chosen = width);
    m_fitted = width;
}

} // namespace kevra
