// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtWidgets/QDialog>

class QLabel;

namespace kevra {

/// What the program is: `faboutkevra`, behind the About item and once at the very first start, when three
/// notices stand with the text.
class InformationWindow : public QDialog {
public:
    explicit InformationWindow(QWidget *parent = nullptr);

    void showFirstStartNotices();
    /// In the middle of the window it belongs to, with the keyboard.
    void comeForward();
    void done(int result) override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void fill();

    QList<QLabel *> m_notices;
};

} // namespace kevra
