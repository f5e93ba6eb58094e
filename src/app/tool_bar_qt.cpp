// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tool_bar_qt.h"

#include "app/commands.h"
#include "app/svg_icon_qt.h"
#include "desktop/text_qt.h"

#include <QtWidgets/QToolButton>

namespace kevra {

namespace {

constexpr int iconEdge = 24;

} // namespace

ToolBar::ToolBar(const CommandRegistry &commands, QWidget *parent)
    : QToolBar(parent)
    , m_commands(commands)
{
    setObjectName("tbar");
    setWindowTitle("Toolbar");
    setMovable(false);
    setFloatable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize({iconEdge, iconEdge});
    for (const auto &row : toolRows()) {
        if (row.button.empty()) {
            m_buttons.push_back({addSeparator(), 0});
            if (!row.lineShown)
                widgetForAction(m_buttons.back().action)->setFixedWidth(0);
            continue;
        }
        auto *action = addAction(svgIcon(imageName(row.image)), textOf(row.tip));
        connect(action, &QAction::triggered, this, [this, item = row.item] { m_commands.run(item); });
        auto *button = widgetForAction(action);
        button->setObjectName(textOf(row.button));
        button->setAccessibleName(textOf(row.tip));
        button->setFocusPolicy(Qt::TabFocus);
        m_buttons.push_back({action, row.image});
    }
}

void ToolBar::setButtonVisible(int number, bool visible)
{
    m_buttons.at(static_cast<std::size_t>(number - 1)).action->setVisible(visible);
}

void ToolBar::setButtonImage(int number, int image)
{
    auto &button = m_buttons.at(static_cast<std::size_t>(number - 1));
    button.image = image;
    button.action->setIcon(svgIcon(imageName(image)));
}

int ToolBar::buttonImage(int number) const
{
    return m_buttons.at(static_cast<std::size_t>(number - 1)).image;
}

void ToolBar::setEnabled(std::string_view item, bool enabled)
{
    for (std::size_t i = 0; i < m_buttons.size(); ++i)
        if (toolRows()[i].item == item)
            m_buttons[i].action->setEnabled(enabled);
}

void ToolBar::enableBoundButtons()
{
    for (std::size_t i = 0; i < m_buttons.size(); ++i)
        if (const auto &row = toolRows()[i]; !row.button.empty())
            m_buttons[i].action->setEnabled(m_commands.isBound(row.item));
}

} // namespace kevra
