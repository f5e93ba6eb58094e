// SPDX-License-Identifier: GPL-3.0-or-later
// The browser window `fbrowser`: the page under work, or a help page.
#pragma once

#include <QtWidgets/QMainWindow>

class QLabel;
class QLineEdit;
class QProgressBar;
class QScrollArea;

namespace kevra {

class FindBar;

class BrowserWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit BrowserWindow(QWidget *parent = nullptr);

    void setPageWidget(QWidget *page); ///< stays its owner's
    void setLinkTarget(const QString &text);
    void showProgress(int percent); ///< 100: nothing is being loaded
    void showNote(const QString &note); ///< stays
    void showFound(int place, int places); ///< which of how many, both 0 for none
    void setPageSize(const QSize &size); ///< of `wb1`, until the window is reset

signals:
    void textAsked();
    void saveAsAsked();
    void quitAsked(); ///< by the frame too; the window stays until the program ends
    void sizeAsked(const QSize &size);
    void refreshAsked();
    void helpAsked();
    void referenceAsked();
    void remoteChanged(bool on);
    void firstShown();
    /// Nothing to find takes the marks away.
    void findAsked(const QString &text, bool backward);
    /// 0 is the natural size.
    void zoomAsked(int steps);

protected:
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;

private:
    void createMenus();
    void createControls();
    void createStatusBar();
    void resetWindow();
    void run(const QString &item);

    QLineEdit *m_url;
    QScrollArea *m_frame;
    QWidget *m_page; ///< `wb1`
    FindBar *m_find;
    QProgressBar *m_progress;
    QLabel *m_network;
    bool m_wasShown = false;
};

} // namespace kevra
