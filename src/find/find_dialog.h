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

/// The dialog `ffind`, not modal. Return finds, F3 finds the next, Escape hides.
class FindDialog : public QDialog, private FindView {
    Q_OBJECT

public:
    FindDialog(EditorSurface &document, DocumentState &state, Messages &messages, QWidget *parent = nullptr);

    [[nodiscard]] FindCommands &commands() { return m_commands; }
    /// Called with each hit selected, before its place is asked for.
    void setReveal(std::function<void()> reveal) { m_reveal = std::move(reveal); }
    /// Where the selection is on the screen.
    void setHitPlace(std::function<QRect()> place) { m_hitPlace = std::move(place); }
    /// Whether the document may be changed now; it always may when this is not set.
    void setMayEdit(std::function<bool()> mayEdit) { m_mayEdit = std::move(mayEdit); }

    /// Where it is said that a search has gone round.
    void setTell(std::function<void(std::string_view)> tell) { m_tell = std::move(tell); }
    /// Looks for `text` next, unless that is no word or words of one line.
    void suggest(std::string_view text);
    /// What its boxes say, while it is open.
    [[nodiscard]] std::optional<FindRequest> shownRequest() const;

signals:
    /// What shownRequest() answers.
    void requestChanged();

protected:
    void hideEvent(QHideEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    [[nodiscard]] FindRequest entered() const override;
    void showCount(Offset count) override;
    void hitSelected() override;
    void showReplaced(Offset count) override;
    void showRound(std::string_view text) override;
    void createBoxes();
    void createButtons();
    void layOut();

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
    std::function<void(std::string_view)> m_tell = [](std::string_view) {};
};

} // namespace kevra
