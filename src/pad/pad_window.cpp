// SPDX-License-Identifier: GPL-3.0-or-later
#include "pad/pad_window.h"

#include "desktop/window_geometry_qt.h"

#include <QtGui/QAction>
#include <QtGui/QCloseEvent>
#include <QtGui/QShortcut>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

namespace kevra {
namespace {

struct PadItem {
    const char *name;
    const char *caption;
    const char *popUpName; ///< the same command in the pop-up menu
    const char *popUpCaption;
    QKeySequence::StandardKey key;
    void (PadCommands::*command)();
    bool separates; ///< in the pop-up menu, from the item before
};

// UNDO has no key: the key runs the control's own undo, which also reverts typing.
constexpr PadItem barOrder[] = {
    {"mcutp", "&CUT", "popcut", "&Cut", QKeySequence::Cut, &PadCommands::PadCut, true},
    {"mcopyp", "&COPY", "popcopy", "&Copy", QKeySequence::Copy, &PadCommands::PadCopy, false},
    {"mpastep", "&PASTE", "poppaste", "&Paste", QKeySequence::Paste, &PadCommands::PadPaste, false},
    {"mclearp", "&CLEAR", nullptr, nullptr, QKeySequence::UnknownKey, &PadCommands::PadClear, false},
    {"mundop", "&UNDO", "popundo", "&Undo", QKeySequence::UnknownKey, &PadCommands::PadUndo, false},
    {"mselallp", "&SELECT ALL", "popselall", "&Select All", QKeySequence::SelectAll,
        &PadCommands::PadSelectAll, true},
};
constexpr std::size_t popUpOrder[] = {4, 0, 1, 2, 5};

} // namespace

PadWindow::PadWindow(
    const EditorSurface &surface, Clipboard &clipboard, ApplicationState &application, QWidget *parent)
    : QMainWindow(parent)
    , m_surface(surface)
    , m_application(application)
    , m_control(new EditorControl(this))
    , m_popUp(new QMenu("popup", this))
    , m_commands(*m_control, surface, clipboard)
{
    // As a dialog it stays above the document's window, so that text can be dragged between the two.
    setWindowFlags(
        Qt::Dialog | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    setObjectName("fpad");
    setWindowTitle("Clipping Pad");
    m_control->setObjectName("rt1");
    m_control->setAccessibleName("Clipping pad");
    m_control->setFrameShape(QFrame::NoFrame);
    setCentralWidget(m_control);
    setFocusProxy(m_control);
    createMenus();
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, &QWidget::close);
    connect(m_control, &EditorControl::changed, this, [this](Offset position, Offset removed, Offset added) {
        m_commands.textChanged(position, removed, added);
    });
}

QAction *PadWindow::addCommand(
    QWidget &menu, const char *name, const QString &caption, void (PadCommands::*command)())
{
    auto *action = new QAction(caption, this);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, [this, command] { (m_commands.*command)(); });
    menu.addAction(action);
    return action;
}

void PadWindow::createMenus()
{
    for (const auto &item : barOrder)
        addCommand(*menuBar(), item.name, item.caption, item.command)->setShortcut(item.key);
    m_popUp->setObjectName("mpopupp");
    for (const auto at : popUpOrder) {
        const auto &item = barOrder[at];
        if (item.separates)
            m_popUp->addSeparator();
        addCommand(*m_popUp, item.popUpName, item.popUpCaption, item.command);
    }
    for (QWidget *at : {static_cast<QWidget *>(m_control), m_control->viewport()}) {
        at->setContextMenuPolicy(Qt::DefaultContextMenu);
        at->installEventFilter(this);
    }
}

/// The menu opens when the right button is released, on every desktop, or with the menu key.
bool PadWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ContextMenu) {
        const auto *menuEvent = static_cast<QContextMenuEvent *>(event);
        if (menuEvent->reason() != QContextMenuEvent::Mouse)
            m_popUp->popup(menuEvent->globalPos());
        return true;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton)
            m_popUp->popup(mouse->globalPosition().toPoint());
    }
    return QMainWindow::eventFilter(watched, event);
}

bool PadWindow::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate)
        takeFontAndPlace();
    else if (event->type() == QEvent::WindowDeactivate)
        keepPlace();
    return QMainWindow::event(event);
}

void PadWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange)
        m_application.padState = isNormal() ? PadState::Normal : PadState::Other;
    QMainWindow::changeEvent(event);
}

void PadWindow::showEvent(QShowEvent *event)
{
    takeFontAndPlace();
    m_control->setFocus();
    QMainWindow::showEvent(event);
}

void PadWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    m_commands.empty();
    keepPlace();
    hide();
    // Otherwise it would open again maximised or minimised, not at its remembered place.
    setWindowState(Qt::WindowNoState);
}

bool PadWindow::isNormal() const
{
    return !(windowState() & (Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen));
}

void PadWindow::takeFontAndPlace()
{
    m_control->SetFont(m_surface.Font());
    if (!isNormal())
        return;
    const auto place = onAScreen(pixels(m_application.padGeometry));
    move(place.topLeft());
    resize(place.size());
}

void PadWindow::keepPlace()
{
    if (isVisible() && isNormal())
        m_application.padGeometry = twips({pos(), size()});
}

} // namespace kevra
