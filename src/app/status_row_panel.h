// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/file_status.h"

#include <QtWidgets/QFrame>

#include <utility>
#include <vector>

class QAction;
class QActionGroup;
class QLabel;
class QLineEdit;
class QMenu;
class QToolButton;

namespace kevra {

/// The row under the information box: encoding and line ends, each with a menu, whether the text is saved,
/// line and column, and with the script tools boxes for these and the counts.
class StatusRow : public QFrame {
    Q_OBJECT

public:
    explicit StatusRow(QWidget *parent = nullptr);

    void setDocumentStatus(const FileStatus &status);
    /// A message, shown instead of notices about the document, shortened in the middle if necessary. Empty
    /// removes it.
    void setNotice(const QString &text);
    /// The result of the analysis; empty hides the field.
    void setAnalysis(const QString &summary);
    /// Line and column from 1.
    void setCaret(qint64 line, qint64 column);
    void setCounts(qint64 characters, qint64 lines);
    /// The counts cost a pass over the text; with the web page tools they are not shown.
    [[nodiscard]] bool showsCounts() const;

signals:
    void reopenChosen();
    void saveAsChosen();
    void markChosen(bool on);
    void lineEndsChosen(kevra::LineEnds ends);
    void offerTaken();
    void analysisChosen();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Place {
        const char *name;
        const char *caption;
        const char *shortCaption; ///< if there is no room for the other
        int digits;
        int fewDigits;
    };

    QLineEdit *addPlace(const Place &place);
    void fitPlaces();
    QToolButton *addMenuButton(const char *name, const char *accessibleName, const char *toolTip);
    void fillEncodingMenu();
    void fillLineEndsMenu();
    void showNotice();
    void fitNotice();

    QToolButton *m_encoding;
    QToolButton *m_lineEnds;
    QLabel *m_status;
    QLabel *m_notice;
    QString m_message;
    QString m_encodingNotice;
    QToolButton *m_offer;
    QToolButton *m_analysis;
    QAction *m_reopen;
    QAction *m_mark;
    QActionGroup *m_ends;
    QLabel *m_place; ///< line and column where their boxes are not shown
    std::vector<std::pair<Place, QLabel *>> m_captions;
    QLineEdit *m_line;
    QLineEdit *m_column;
    QLineEdit *m_characters;
    QLineEdit *m_lines;
};

} // namespace kevra
