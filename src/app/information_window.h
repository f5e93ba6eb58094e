// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtWidgets/QDialog>

class QLabel;

namespace kevra {

/// The window `faboutkevra`: shown by the About item, and once at the first start with three notices.
class InformationWindow : public QDialog {
public:
    explicit InformationWindow(QWidget *parent = nullptr);

    void showFirstStartNotices();
    /// Centres it on its parent and gives it the focus.
    void comeForward();
    void done(int result) override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void fill();

    QList<QLabel *> m_notices;
};

} // namespace kevra
