// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/command_registry.h"

#include <QtWidgets/QToolBar>

#include <vector>

namespace kevra {

/// The toolbar `tbar`. Buttons and separators are numbered from 1; a button has the object name of its row.
class ToolBar : public QToolBar {
public:
    /// A click runs the command of the button's menu item.
    explicit ToolBar(const CommandRegistry &commands, QWidget *parent = nullptr);

    void setButtonVisible(int number, bool visible);
    void setButtonImage(int number, int image);
    [[nodiscard]] int buttonImage(int number) const;
    void enableBoundButtons();
    void setEnabled(std::string_view item, bool enabled); ///< the button that runs the item's command

private:
    struct Button {
        QAction *action = nullptr;
        int image = 0;
    };

    const CommandRegistry &m_commands;
    std::vector<Button> m_buttons;
};

} // namespace kevra
