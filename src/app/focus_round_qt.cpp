// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/focus_round_qt.h"

#include <QtGui/QShortcut>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <algorithm>

namespace kevra {

namespace {

bool takesFocus(const QWidget &control)
{
    return control.isVisible() && control.isEnabled() && (control.focusPolicy() & Qt::TabFocus);
}

/// The part itself or its first control that can take the focus; null if there is none.
QWidget *firstControl(QWidget &part)
{
    if (takesFocus(part))
        return &part;
    const auto inside = part.findChildren<QWidget *>();
    const auto found = std::ranges::find_if(inside, [](const auto *control) { return takesFocus(*control); });
    return found == inside.end() ? nullptr : *found;
}

} // namespace

FocusRound::FocusRound(QWidget &window, const QList<QWidget *> &parts)
    : QObject(&window)
{
    const auto on = [&](const char *key, auto step) {
        connect(new QShortcut(QKeySequence(key), &window), &QShortcut::activated, this, step);
    };
    on("F6", [this] { move(Direction::Forward); });
    on("Shift+F6", [this] { move(Direction::Back); });
    for (auto *part : parts)
        add(*part);
}

void FocusRound::add(QWidget &part)
{
    m_parts.append(&part);
    if (m_parts.size() > 1)
        connect(new QShortcut(QKeySequence("Esc"), &part, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
            &QShortcut::activated, this, [this] { m_parts.first()->setFocus(Qt::ShortcutFocusReason); });
}

void FocusRound::move(Direction direction)
{
    const auto *now = QApplication::focusWidget();
    const auto count = m_parts.size();
    const auto found = std::ranges::find_if(
        m_parts, [now](const auto *part) { return part == now || part->isAncestorOf(now); });
    auto at = found == m_parts.end() ? 0 : found - m_parts.begin();
    for (qsizetype tried = 0; tried < count; ++tried) {
        at = (at + (direction == Direction::Forward ? 1 : count - 1)) % count;
        if (auto *control = firstControl(*m_parts[at]))
            return control->setFocus(Qt::ShortcutFocusReason);
    }
}

} // namespace kevra
