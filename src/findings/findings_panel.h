// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "findings/findings_commands.h"

#include <QtCore/QObject>

#include <functional>

class QComboBox;
class QFrame;
class QItemSelection;
class QLabel;
class QLayout;
class QTextBrowser;
class QTreeView;
class QVBoxLayout;

namespace kevra {

class FindingRows;

/// The frame under the text: the list of findings, and the reason and fixes of the selected one. The controls
/// are owned by the frame.
class FindingsPanel : public QObject {
    Q_OBJECT

public:
    FindingsPanel(QFrame &frame, FindingsCommands &commands);

    /// The findings have changed.
    void refill();
    /// Line numbers may have changed.
    void relabel();
    void selectRow(std::size_t index);
    void setLevel(script::Level level);

signals:
    void levelChosen(kevra::script::Level level);
    void closeRequested();
    /// The user has activated a finding; the text gets the focus.
    void textRequested();

private:
    void setUpControls();
    [[nodiscard]] QLayout *createTopRow();
    void arrange();
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
    bool m_filling = false; ///< the selection is being changed by the program
};

} // namespace kevra
