// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/browser_window.h"

#include "preview/find_bar_panel.h"
#include "widgets/named_qt.h"

#include <QtGui/QAction>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QVBoxLayout>

namespace kevra {

namespace {

constexpr auto invitation = "Click links to check URL code";

struct ViewSize {
    const char *item;
    QSize size; ///< what is left of a screen of the size in the caption
};
constexpr ViewSize viewSizes[] = {{"m15", {800, 490}}, {"m17", {1024, 658}}};

struct Zoom {
    const char *item;
    int steps;
};
constexpr Zoom zooms[] = {{"mzoomin", 1}, {"mzoomout", -1}, {"mzoomnormal", 0}};

struct Plain {
    const char *item;
    void (BrowserWindow::*asked)();
};
constexpr Plain plainItems[] = {
    {"mbsaveas", &BrowserWindow::saveAsAsked},
    {"mexit", &BrowserWindow::quitAsked},
    {"mtextview", &BrowserWindow::textAsked},
    {"mrefresh", &BrowserWindow::refreshAsked},
    {"mcallhelp", &BrowserWindow::helpAsked},
    {"mvbsinfo", &BrowserWindow::referenceAsked},
};

struct MenuRow {
    const char *name;
    const char *caption;
    const char *key; ///< null: a menu title
};
constexpr MenuRow menuRows[] = {
    {"mfile", "&File", nullptr},
    {"mbsaveas", "&SaveAs", ""},
    {"mexit", "&Exit", "Ctrl+Q"},
    {"mview", "&View", nullptr},
    {"mtextview", "&View Text", "Esc"},
    {"m15", "&15\" View - 800x600", ""},
    {"m17", "&17\" View - 1024x768", ""},
    {"mreset", "&Reset Window", ""},
    {"mrefresh", "&Refresh", "F5"},
    {"mfindpage", "&Find in Page", "Ctrl+F"},
    {"mzoomin", "Zoom &In", "Ctrl++; Ctrl+="},
    {"mzoomout", "Zoom &Out", "Ctrl+-"},
    {"mzoomnormal", "Natural Si&ze", "Ctrl+0"},
    {"mremote", "&Load Remote Content", ""},
    {"mhelp", "&Help", nullptr},
    {"mcallhelp", "&KEVRA Help", "F1"},
    {"mvbsinfo", "&VBScript Info", "Shift+F1"},
};

} // namespace

BrowserWindow::BrowserWindow(QWidget *parent)
    : QMainWindow(parent)
{
    setObjectName("fbrowser");
    setWindowTitle("KEVRA Browser");
    createMenus();
    createControls();
    createStatusBar();
    resize(1040, 760);
}

void BrowserWindow::createMenus()
{
    QMenu *menu = nullptr;
    for (const auto &row : menuRows) {
        if (!row.key) {
            menu = menuBar()->addMenu(row.caption);
            menu->setObjectName(row.name);
            continue;
        }
        auto *action = menu->addAction(row.caption);
        action->setShortcuts(QKeySequence::listFromString(row.key));
        action->setObjectName(row.name);
        connect(action, &QAction::triggered, this, [this, name = QString(row.name)] { run(name); });
    }
    auto *remote = findChild<QAction *>("mremote");
    remote->setCheckable(true);
    remote->setStatusTip("Images, style sheets and scripts from the web, over https");
    connect(remote, &QAction::toggled, this, [this](bool on) {
        m_network->setText(on ? "Remote content is loaded over https" : "Remote content is not loaded");
        emit remoteChanged(on);
    });
}

void BrowserWindow::createControls()
{
    auto *inner = new QWidget(this);
    auto *column = new QVBoxLayout(inner);
    auto *row = new QHBoxLayout;
    m_url = named<QLineEdit>("turl", inner, "Link target");
    m_url->setToolTip("Where a clicked link leads");
    auto *text = named<QPushButton>("btext", inner);
    text->setText("VIEW TEXT");
    text->setToolTip("Return to code writing");
    auto *exit = named<QPushButton>("bexit", inner);
    exit->setText("EXIT");
    exit->setToolTip("Quit the program");
    row->addWidget(m_url, 1);
    row->addWidget(text);
    row->addWidget(exit);
    column->addLayout(row);

    m_frame = new QScrollArea(inner);
    m_frame->setFrameShape(QFrame::StyledPanel);
    m_frame->setWidgetResizable(true);
    m_page = named<QWidget>("wb1", nullptr, "Page");
    auto *page = new QVBoxLayout(m_page);
    page->setContentsMargins({});
    m_frame->setWidget(m_page);
    column->addWidget(m_frame, 1);
    m_find = new FindBar(inner);
    column->addWidget(m_find);
    connect(m_find, &FindBar::findAsked, this, &BrowserWindow::findAsked);
    connect(m_find, &FindBar::closed, this, [this] { m_page->setFocus(); });
    column->setContentsMargins(6, 6, 6, 0);
    setCentralWidget(inner);
    connect(text, &QPushButton::clicked, this, &BrowserWindow::textAsked);
    connect(exit, &QPushButton::clicked, this, &BrowserWindow::quitAsked);
}

void BrowserWindow::createStatusBar()
{
    m_progress = named<QProgressBar>("pload", this, "Loading");
    m_progress->setMaximumWidth(140);
    m_progress->setTextVisible(false);
    m_progress->hide();
    m_network = named<QLabel>("lnetwork", this);
    m_network->setText("Remote content is not loaded");
    statusBar()->setContentsMargins(6, 0, 6, 0);
    statusBar()->addPermanentWidget(m_progress);
    statusBar()->addPermanentWidget(m_network);
}

void BrowserWindow::run(const QString &item)
{
    for (const auto &plain : plainItems) {
        if (item == plain.item)
            emit(this->*plain.asked)();
    }
    for (const auto &zoom : zooms) {
        if (item == zoom.item)
            emit zoomAsked(zoom.steps);
    }
    if (item == "mfindpage")
        m_find->open();
    for (const auto &view : viewSizes) {
        if (item == view.item)
            emit sizeAsked(view.size);
    }
    if (item == "mreset")
        resetWindow();
}

void BrowserWindow::setPageWidget(QWidget *page)
{
    m_page->layout()->addWidget(page);
    m_page->setFocusProxy(page);
    page->show();
}

void BrowserWindow::setLinkTarget(const QString &text)
{
    m_url->setText(text);
    m_url->setCursorPosition(0);
}

void BrowserWindow::showProgress(int percent)
{
    m_progress->setVisible(percent < 100);
    m_progress->setValue(percent);
    if (percent < 100)
        m_page->setCursor(Qt::BusyCursor);
    else
        m_page->unsetCursor();
}

void BrowserWindow::showNote(const QString &note)
{
    auto *label = named<QLabel>("lnote", this);
    label->setText(note);
    statusBar()->addWidget(label);
}

void BrowserWindow::showFound(int place, int places)
{
    m_find->showFound(place, places);
}

void BrowserWindow::setPageSize(const QSize &size)
{
    m_page->setFixedSize(size);
    m_frame->setWidgetResizable(false);
    m_page->resize(size);
}

void BrowserWindow::resetWindow()
{
    m_page->setMinimumSize(0, 0);
    m_page->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    m_frame->setWidgetResizable(true);
    emit zoomAsked(0);
    showNormal();
    showMaximized();
}

void BrowserWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    emit quitAsked();
}

bool BrowserWindow::event(QEvent *event)
{
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::WindowActivate)
        setLinkTarget(invitation);
    if (event->type() == QEvent::Hide)
        m_find->close();
    if (event->type() == QEvent::Show && !m_wasShown) {
        m_wasShown = true;
        // As the reset leaves it. Not earlier: the web engine's view makes the native window anew.
        setWindowState(Qt::WindowMaximized);
        emit firstShown();
    }
    return handled;
}

} // namespace kevra
