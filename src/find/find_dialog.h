// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "find/find_commands.h"

#include <QtWidgets/QDialog>

#include <functional>
#include <optional>
#include <string_view>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace kevra {

/// The dialog `ffind`, modeless. Return finds, F3 finds the next hit, Escape hides the dialog.
class FindDialog : public QDialog, private FindView {
    Q_OBJECT

public:
    FindDialog(EditedDocument document, Messages &messages, QWidget *parent = nullptr);

    [[nodiscard]] FindCommands &commands() { return m_commands; }
    /// Called after each hit is selected, before its place on the screen is requested.
    void setReveal(std::function<void()> reveal) { m_reveal = std::move(reveal); }
    /// Returns the selection's rectangle on the screen.
    void setHitPlace(std::function<QRect()> place) { m_hitPlace = std::move(place); }
    /// Returns whether the document may be changed; unset, it always may.
    void setMayEdit(std::function<bool()> mayEdit) { m_mayEdit = std::move(mayEdit); }

    /// Receives the note that a search wrapped around.
    void onNote(std::function<void(std::string_view)> showNote) { m_showNote = std::move(showNote); }
    /// Proposes `text` as the search string if it is short and on one line.
    void suggest(std::string_view text);
    /// The current entries, while the dialog is open.
    [[nodiscard]] std::optional<FindRequest> shownRequest() const;

signals:
    /// The result of shownRequest() may have changed.
    void requestChanged();

protected:
    void hideEvent(QHideEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    [[nodiscard]] FindRequest entered() const override;
    void showCount(Offset count) override;
    void hitSelected() override;
    void showReplaced(Offset count) override;
    void showWrapped(std::string_view text) override;
    void createBoxes();
    void createButtons();
    void arrange();

    FindCommands m_commands;
    QLineEdit *m_text;
    QLineEdit *m_replacement;
    QLineEdit *m_count;
    QCheckBox *m_case;
    QCheckBox *m_whole;
    QCheckBox *m_expression;
    QLabel *m_outcome;
    std::function<void()> m_reveal;
    std::function<QRect()> m_hitPlace;
    std::function<bool()> m_mayEdit;
    std::function<void(std::string_view)> m_showNote = [](std::string_view) {};
};

} // namespace kevra
