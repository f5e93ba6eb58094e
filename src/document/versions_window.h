// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/versions_commands.h"

#include <QtWidgets/QDialog>

class QCheckBox;
class QLabel;
class QPushButton;
class QTreeWidget;

namespace kevra {

class ComparePanel;

/// Lists the kept versions and compares the selected one with the document.
class VersionsWindow : public QDialog {
    Q_OBJECT

public:
    explicit VersionsWindow(VersionsCommands &commands, QWidget *parent = nullptr);

    void showVersions();

private:
    [[nodiscard]] QWidget *list();
    [[nodiscard]] QPushButton *addButton(
        const char *name, const char *caption, const char *toolTip, void (VersionsWindow::*command)());
    void fill();
    void showChosen();
    [[nodiscard]] const VersionRow *chosen() const; ///< null if none
    void restore();
    void openElsewhere();
    void remove();

    VersionsCommands &m_commands;
    std::vector<VersionRow> m_rows;
    QCheckBox *m_everything;
    QTreeWidget *m_list;
    ComparePanel *m_panel;
    QLabel *m_empty;
    QList<QPushButton *> m_buttons;
};

} // namespace kevra
