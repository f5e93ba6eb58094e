// SPDX-License-Identifier: GPL-3.0-or-later
// The dock `dbeside` right of the text.
#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QDockWidget>

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
    void setNote(const QString &note); ///< empty: none
    void setLinkTarget(const QString &address);
    void zoom(int steps); ///< 0: back to the natural size

signals:
    void widthSettled(int width); ///< by the user or the window, some time ago
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
    void resizeEvent(QResizeEvent *event) override;
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
    QLineEdit *m_link;
    QWidget *m_page = nullptr;
    QTimer m_settling;
    double m_zoom = 1;
    double m_scale = 1;
};

} // namespace kevra
