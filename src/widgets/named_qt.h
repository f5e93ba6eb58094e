// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>

namespace kevra {

/// Creates a control with an object name; one without a caption also needs an accessible name.
template <typename Widget>
Widget *named(const char *name, QWidget *parent, const char *accessibleName = nullptr)
{
    auto *widget = new Widget(parent);
    widget->setObjectName(QString::fromLatin1(name));
    if (accessibleName)
        widget->setAccessibleName(QString::fromLatin1(accessibleName));
    return widget;
}

} // namespace kevra
