// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/entry_groups.h"
#include "settings/settings_commands.h"

#include <QtWidgets/QDialog>

#include <functional>
#include <span>
#include <vector>

class QComboBox;
class QFrame;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kevra {

/// The window `fsetkevra`. It holds no state: every control calls a command and shows the result.
class SettingsDialog : public QDialog {
    Q_OBJECT

public:
    explicit SettingsDialog(SettingsCommands &commands, QWidget *parent = nullptr);

    /// Shows the current settings in front of other windows; while it is open, entries being edited are kept.
    void showSettings();
    void done(int result) override;

protected:
    bool event(QEvent *event) override;

private:
    void build();
    QWidget *switches();
    QWidget *entries();
    QWidget *program();
    QGridLayout *gridIn(QWidget &box);
    void addYesNo(QGridLayout &grid, const OptionRow &row);
    void addColours(QGridLayout &grid);
    void addRow(QGridLayout &grid, const QString &text, QWidget *entry, QPushButton *apply);
    void addEntry(QGridLayout &grid, const EntryGroup &group, QWidget *entry, std::function<void()> apply);
    QLineEdit *lineEdit(const EntryGroup &group);
    QComboBox *listBox(const EntryGroup &group, std::span<const std::string_view> items);
    QPushButton *button(
        std::string_view name, const QString &caption, std::string_view tip, std::function<void()> clicked);
    void fitScreen(const QWidget &content);
    /// Wraps a control's command to show a note when its change could not be stored.
    std::function<void()> act(std::function<void()> command);
    void showLamps();
    void showColour();
    void showEntries();
    void showProgram();

    SettingsCommands &m_commands;
    std::vector<std::pair<Option, QLabel *>> m_lamps;
    QLineEdit *m_tempFolder = nullptr;
    QComboBox *m_interval = nullptr;
    QComboBox *m_face = nullptr;
    QComboBox *m_size = nullptr;
    QFrame *m_colour = nullptr;
    QLabel *m_sample = nullptr;
    QPushButton *m_applyColour = nullptr;
    QLineEdit *m_program = nullptr;
    QLineEdit *m_menuText = nullptr;
    QLabel *m_notStored = nullptr;
};

} // namespace kevra
