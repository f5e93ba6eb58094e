// SPDX-License-Identifier: GPL-3.0-or-later
// The dock `dbeside` right of the text.
#pragma once

#include "beside/beside_note.h"

#include <QtWidgets/QDockWidget>

#include <map>

class QComboBox;
class QLabel;
class QLineEdit;
class QScrollArea;
class QToolBar;

namespace kevra {

class BesidePanel : public QDockWidget {
    Q_OBJECT

public:
    explicit BesidePanel(QWidget *parent);

    /// Where the page's widget belongs; it is given its size here.
    [[nodiscard]] QWidget &frame() { return *m_frame; }
    void setPageWidget(QWidget *page); ///< stays its owner's
    void showPage(bool shown); ///< without it there is only the note
    void showNote(BesideNote kind, const QString &note); ///< plain text; empty: none
    void setLinkTarget(const QString &address);
    void zoomBy(int steps); ///< 0: back to the natural size

signals:
    void closed(); ///< by the user
    void reloadAsked();
    void stopAsked();
    void browserAsked();
    /// What the page is to be scaled by, so that it has the width chosen.
    void scaleChanged(double factor);
    void darkChosen(bool dark); ///< the preference that the page is to see

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addTools(QToolBar &tools);
    void layOutPage();
    void chooseColours();

    QComboBox *m_width;
    QComboBox *m_colours;
    QScrollArea *m_area;
    QWidget *m_frame;
    QLabel *m_note;
    std::map<BesideNote, QString> m_notes;
    QLineEdit *m_link;
    QWidget *m_page = nullptr;
    double m_zoom = 1;
    double m_scale = 1;
};

} // namespace kevra
