// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/commands.h"
#include "app/wiring_qt.h"
#include "desktop/text_qt.h"

#include <QtGui/QShortcut>

#include <algorithm>

namespace kevra {

void shareShortcuts(Application &app, QWidget &window, std::initializer_list<std::string_view> items)
{
    for (const auto item : items) {
        const auto row = std::ranges::find(menuRows(), item, &MenuRow::item);
        for (const auto &key : QKeySequence::listFromString(textOf(row->shortcut)))
            QObject::connect(new QShortcut(key, &window), &QShortcut::activated, &window,
                [&app, item] { app.commands.run(item); });
    }
}

} // namespace kevra
