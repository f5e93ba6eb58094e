// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/main_menu_qt.h"

#include "app/commands.h"
#include "desktop/text_qt.h"

#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

namespace kevra {

namespace {

std::string_view commandOf(const MenuRow &row)
{
    return row.command.empty() ? row.item : row.command;
}

template <typename Map> auto valueOrNull(const Map &map, std::string_view key) -> typename Map::mapped_type
{
    const auto it = map.find(key);
    return it == map.end() ? nullptr : it->second;
}

} // namespace

MainMenu::MainMenu(QMenuBar &bar, QWidget &window, const CommandRegistry &commands)
    : QObject(&window)
    , m_window(window)
    , m_commands(commands)
{
    QMenu *current = nullptr;
    for (const auto &row : menuRows()) {
        switch (row.kind) {
        case MenuKind::Menu:
        case MenuKind::HiddenMenu:
            current = new QMenu(textOf(row.caption), &window);
            current->setObjectName(textOf(row.item));
            current->setToolTipsVisible(true);
            if (row.kind == MenuKind::Menu)
                bar.addMenu(current);
            m_menus.emplace(row.item, current);
            m_actions.emplace(row.item, current->menuAction());
            break;
        case MenuKind::Separator:
            if (current)
                current->addSeparator();
            break;
        case MenuKind::BarItem:
            addCommand(row, bar);
            break;
        case MenuKind::Item:
        case MenuKind::CheckItem:
            addCommand(row, current ? static_cast<QWidget &>(*current) : bar);
            break;
        }
    }
    for (const auto method : fsoMethods())
        menu("mpopfso")->addAction(textOf(method))->setObjectName("mfso" + textOf(method));
}

void MainMenu::addCommand(const MenuRow &row, QWidget &place)
{
    auto *action = new QAction(textOf(row.caption), &m_window);
    action->setObjectName(textOf(row.item));
    action->setToolTip(textOf(row.tip));
    action->setStatusTip(textOf(row.tip));
    action->setCheckable(row.kind == MenuKind::CheckItem);
    action->setShortcuts(QKeySequence::listFromString(textOf(row.shortcut)));
    // Undoes the menu's own check mark: the mark shows a state, which the command sets.
    connect(action, &QAction::triggered, this, [this, action, command = std::string(commandOf(row))] {
        if (action->isCheckable())
            action->setChecked(!action->isChecked());
        m_commands.run(command);
    });
    place.addAction(action);
    m_actions.emplace(row.item, action);
}

QMenu *MainMenu::menu(std::string_view item) const
{
    return valueOrNull(m_menus, item);
}

QAction *MainMenu::action(std::string_view item) const
{
    return valueOrNull(m_actions, item);
}

void MainMenu::setEnabled(std::string_view item, bool enabled)
{
    for (const auto &row : menuRows())
        if (!row.item.empty() && commandOf(row) == item)
            action(row.item)->setEnabled(enabled);
}

void MainMenu::enableBoundItems()
{
    for (const auto &row : menuRows())
        if (row.kind == MenuKind::Item || row.kind == MenuKind::CheckItem || row.kind == MenuKind::BarItem)
            action(row.item)->setEnabled(m_commands.isBound(commandOf(row)));
}

} // namespace kevra
