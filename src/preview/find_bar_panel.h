// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QFrame>

class QLabel;
class QLineEdit;

namespace kevra {

/// The row under a page for finding text in it. Return finds the next place, Shift+Return the one before,
/// Escape closes the row.
class FindBar : public QFrame {
    Q_OBJECT

public:
    explicit FindBar(QWidget *parent = nullptr);

    /// With the keyboard in it, and looking for what it looked for last.
    void open();
    void close();
    /// Which of how many places is shown, both 0 when there is none.
    void showFound(int place, int places);

signals:
    /// Nothing to find takes the marks away.
    void findAsked(const QString &text, bool backward);
    void closed();

private:
    void find(bool backward);
    bool eventFilter(QObject *watched, QEvent *event) override;

    QLineEdit *m_text;
    QLabel *m_found;
    QTimer m_pause;
};

} // namespace kevra
