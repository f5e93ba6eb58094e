// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/plugin/accessibility_limit_qt.h"

#include "preview/page_bounds.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QAccessible>

namespace kevra {

namespace {

void pass(QAccessibleEvent *event)
{
    static RateLimit limit(bounds::accessibilityEvents);
    static QElapsedTimer clock;
    if (!clock.isValid())
        clock.start();
    // What is in a page is no object of the editor's.
    if (!event->object() && !limit.allows(clock.elapsed()))
        return;
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(pass);
}

} // namespace

void limitPageAccessibility()
{
    QAccessible::installUpdateHandler(pass);
}

} // namespace kevra
