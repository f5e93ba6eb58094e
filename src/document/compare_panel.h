// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/comparison.h"

#include <QtWidgets/QWidget>

class QLabel;
class QPushButton;

namespace kevra {

class EditorControl;

/// Two texts side by side, read-only, that scroll together. Differences are marked by colour and by a sign in
/// the margin. F7 and Shift+F7 move between differences.
class ComparePanel : public QWidget {
    Q_OBJECT

public:
    struct Side {
        QString title;
        std::string_view text;
    };

    explicit ComparePanel(QWidget *parent = nullptr);

    void showTexts(const Side &left, const Side &right);
    void showNothing();

private:
    void setUpControls();
    void arrange();
    void connectControls();
    void fill(EditorControl &side, const std::string &text, Offset ComparedRow::*line);
    void step(int direction);
    void goTo(std::size_t difference);
    void showPlace();

    QLabel *m_leftTitle;
    QLabel *m_rightTitle;
    EditorControl *m_left;
    EditorControl *m_right;
    QLabel *m_place;
    QPushButton *m_previous;
    QPushButton *m_next;
    Comparison m_comparison;
    std::size_t m_current = 0; ///< difference shown, from 0
};

} // namespace kevra
