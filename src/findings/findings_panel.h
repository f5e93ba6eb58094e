// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "findings/findings_commands.h"

#include <QtCore/QObject>

#include <functional>

class QComboBox;
class QFrame;
class QItemSelection;
class QLabel;
class QTextBrowser;
class QTreeView;
class QVBoxLayout;

namespace kevra {

class FindingRows;

/// What the frame under the text holds: the findings as a list, with the reason and the fixes of the one
/// chosen beside it. The controls belong to the frame.
class FindingsPanel : public QObject {
    Q_OBJECT

public:
    FindingsPanel(QFrame &frame, FindingsCommands &commands);

    /// The list has others.
    void refill();
    /// Lines may have moved.
    void relabel();
    void select(std::size_t index);
    void setLevel(script::Level level);

signals:
    void levelChosen(kevra::script::Level level);
    void closeWanted();
    /// The user has chosen a finding for good and goes to the text.
    void textWanted();

private:
    void build();
    void connectControls();
    [[nodiscard]] std::optional<std::size_t> current() const;
    void currentChanged();
    void goToRelated(const QUrl &link);
    void showDetails();
    void showFixes();
    void copy();

    QFrame &m_frame;
    FindingsCommands &m_commands;
    FindingRows *m_rows;
    QLabel *m_summary;
    QComboBox *m_level;
    QTreeView *m_list;
    QTextBrowser *m_why;
    QVBoxLayout *m_fixes;
    bool m_filling = false; ///< the selection moves, and not by the user
};

} // namespace kevra
