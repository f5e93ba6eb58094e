// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>

namespace kevra {

/// A control known by its name; without a caption it also needs a name that can be spoken.
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
