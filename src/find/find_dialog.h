// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "find/find_commands.h"

#include <QtWidgets/QDialog>

#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace kevra {

/// The dialog `ffind`, not modal. Return finds, F3 finds the next, Escape hides.
class FindDialog : public QDialog, private FindView {
    Q_OBJECT

public:
    FindDialog(EditorSurface &document, DocumentState &state, Messages &messages, QWidget *parent = nullptr);

    [[nodiscard]] FindCommands &commands() { return m_commands; }
    /// Where the selection is on the screen.
    void setHitPlace(std::function<QRect()> place) { m_hitPlace = std::move(place); }
    /// Whether the document may be changed now; it always may when this is not set.
    void setMayEdit(std::function<bool()> mayEdit) { m_mayEdit = std::move(mayEdit); }

protected:
    void showEvent(QShowEvent *event) override;

private:
    [[nodiscard]] FindRequest entered() const override;
    void showCount(Offset count) override;
    void hitSelected() override;
    void showReplaced(Offset count) override;
    void createButtons();
    void layOut();

    FindCommands m_commands;
    QLineEdit *m_text;
    QLineEdit *m_replacement;
    QLineEdit *m_count;
    QCheckBox *m_case;
    QCheckBox *m_whole;
    QLabel *m_outcome;
    std::function<QRect()> m_hitPlace;
    std::function<bool()> m_mayEdit;
};

} // namespace kevra
