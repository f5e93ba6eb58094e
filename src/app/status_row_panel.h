// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtWidgets/QFrame>

class QLabel;
class QLineEdit;

namespace kevra {

/// The small line under the information box: encoding, line ends and whether the text is saved, and with the
/// script tools the boxes for line, column and counts.
class StatusRow : public QFrame {
public:
    explicit StatusRow(QWidget *parent = nullptr);

    /// Such as "UTF-8", "CRLF", "saved".
    void setDocumentStatus(const QString &encoding, const QString &lineEnds, const QString &saved);
    /// Beside it, cut in the middle where there is no room; empty takes it away.
    void setNotice(const QString &text);
    /// Line and column from 1.
    void setCaret(qint64 line, qint64 column);
    void setCounts(qint64 characters, qint64 lines);
    [[nodiscard]] bool showsPlaces() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLineEdit *addPlace(const char *name, const char *caption, int digits);
    void fitNotice();

    QLabel *m_status;
    QLabel *m_notice;
    QLineEdit *m_line;
    QLineEdit *m_column;
    QLineEdit *m_characters;
    QLineEdit *m_lines;
};

} // namespace kevra
