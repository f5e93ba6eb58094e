// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/main_window.h"

#include "app/commands.h"
#include "app/focus_round_qt.h"
#include "app/font_frame_panel.h"
#include "app/layout.h"
#include "app/line_number_column_qt.h"
#include "app/main_menu_qt.h"
#include "app/status_row_panel.h"
#include "app/svg_icon_qt.h"
#include "app/tool_bar_qt.h"
#include "desktop/text_qt.h"
#include "desktop/window_geometry_qt.h"
#include "editor/editor_control_qt.h"
#include "text/words.h"
#include "widgets/named_qt.h"

#include <QtCore/QMimeData>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtGui/QWindow>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

#include <chrono>

namespace kevra {

namespace {

constexpr const char *panelNames[] = {"Frame1", "Frame2", "frscript1", "frscript2"};
constexpr const char *sideNames[] = {"fr1", "frcol", "frfindings"};
constexpr QSize firstSize(1024, 720);
constexpr long textMargin = 4; ///< pixels left of the text
constexpr std::chrono::milliseconds patienceTick{50};
constexpr int patienceTicks = 8;

TwipSize preferredSize(const QWidget &widget)
{
    const auto size = widget.sizeHint().expandedTo(widget.minimumSize()).boundedTo(widget.maximumSize());
    return {size.width() * twipsPerPixel, size.height() * twipsPerPixel};
}

EditorControl *placedIn(QWidget *parent, std::unique_ptr<EditorControl> control)
{
    control->setParent(parent);
    return control.release();
}

} // namespace

MainWindow::MainWindow(const CommandRegistry &commands, std::unique_ptr<EditorControl> document)
    : m_inner(new QWidget(this))
    , m_control(placedIn(m_inner, std::move(document)))
    , m_lineNumbers(named<EditorControl>("t2", m_inner, "Line numbers"))
    , m_fonts(new FontFrame(m_inner))
    , m_information(named<QLineEdit>("tinfo", m_inner, "Information"))
    , m_status(new StatusRow(m_inner))
    , m_toolBar(new ToolBar(commands, this))
    , m_menus(new MainMenu(*menuBar(), *this, commands))
    , m_column(new LineNumberColumn(*m_control, *m_lineNumbers))
{
    setObjectName("fedit");
    setWindowTitle("KEVRA");
    setWindowIcon(svgIcon("kevra"));
    addToolBar(m_toolBar);
    for (const auto &row : keyRows())
        connect(new QShortcut(QKeySequence(textOf(row.key)), this), &QShortcut::activated, this,
            [&commands, command = row.command] { commands.run(command); });
    setContextMenuPolicy(Qt::NoContextMenu);
    setCentralWidget(m_inner);
    createControls();
    connectDocument();
    QList<QWidget *> parts{m_control};
    for (const char *name : {"frfindings", "frcol", "Frame1", "Frame2", "frscript1", "frscript2", "fr1"})
        parts.append(&frame(name));
    m_focusRound = new FocusRound(*this, parts << m_toolBar << m_fonts);
    resize(firstSize);
}

void MainWindow::createControls()
{
    m_inner->setObjectName("inner");
    m_inner->installEventFilter(this);
    m_information->setReadOnly(true);
    m_information->setFocusPolicy(Qt::ClickFocus);
    for (const char *name : panelNames)
        named<QFrame>(name, m_inner)->hide();
    for (const char *name : sideNames) {
        auto *frame = named<QFrame>(name, m_inner);
        frame->setAutoFillBackground(true);
        frame->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
        frame->hide();
    }
    for (auto *control : {m_control, m_lineNumbers}) {
        control->setFrameShape(QFrame::NoFrame);
        control->SendScintilla(QsciScintillaBase::SCI_SETMARGINLEFT, 0UL, textMargin);
    }
}

void MainWindow::connectDocument()
{
    setAcceptDrops(true);
    installEventFilter(this);
    m_control->viewport()->installEventFilter(this);
    const auto popUp = [this](QWidget *at) {
        at->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(at, &QWidget::customContextMenuRequested, this,
            [this, at](const QPoint &place) { m_menus->menu("mpop")->popup(at->mapToGlobal(place)); });
    };
    popUp(m_control);
    popUp(m_control->viewport());
    connect(m_control, &EditorControl::caretMoved, this, &MainWindow::showCaretPlace);
    connect(m_control, &EditorControl::caretMoved, this, &MainWindow::showWhatCanBeDone);
    connect(m_control, &EditorControl::changed, this, &MainWindow::textChanged);
    connect(m_control, &EditorControl::readOnlyChanged, this, &MainWindow::showWhatCanBeDone);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
        &MainWindow::showWhetherTextCanBePasted);
    connect(m_control, &EditorControl::savePointChanged, this, &MainWindow::refreshDocumentStatus);
}

QFrame &MainWindow::frame(const QString &name)
{
    return *m_inner->findChild<QFrame *>(name, Qt::FindDirectChildrenOnly);
}

void MainWindow::enableBoundCommands()
{
    m_menus->enableBoundItems();
    m_toolBar->enableBoundButtons();
    m_possible.fill(true);
    showWhatCanBeDone();
}

void MainWindow::showWhatCanBeDone()
{
    const bool writable = !m_control->isReadOnly();
    const bool text = m_control->TextLength() > 0;
    const bool selected = !m_control->Selection().empty();
    const decltype(m_possible) possible{writable && m_control->canUndo(), writable && m_control->canRedo(),
        writable && selected, selected, writable && m_pasteable, text, writable && text};
    const auto known = std::exchange(m_possible, possible);
    for (std::size_t i = 0; i < possible.size(); ++i) {
        if (possible[i] == known[i])
            continue;
        m_menus->setEnabled(editItems[i], possible[i]);
        m_toolBar->setEnabled(editItems[i], possible[i]);
    }
}

void MainWindow::showWhetherTextCanBePasted()
{
    // Not for a window in the background: a program that does not respond would block it.
    if (!isActiveWindow())
        return;
    m_pasteable = m_control->clipboardHasText();
    showWhatCanBeDone();
}

void MainWindow::addFocusPart(QWidget &part)
{
    m_focusRound->add(part);
}

void MainWindow::arrange()
{
    if (isMinimized())
        return;
    LayoutRequest request;
    request.inner = twips(m_inner->rect());
    for (std::size_t i = 0; i < request.panels.size(); ++i)
        request.panels[i] = preferredSize(frame(panelNames[i]));
    request.fonts = preferredSize(*m_fonts);
    request.information = preferredSize(*m_information);
    request.status = m_status->fontMetrics().height() * twipsPerPixel;
    request.image = preferredSize(frame("fr1"));
    // At least as wide as the snippet panels, which it covers.
    for (const auto &panel : request.panels)
        request.image.width = std::max(request.image.width, panel.width);
    request.colour = preferredSize(frame("frcol"));

    if (!frame("frfindings").isHidden())
        request.findings = preferredSize(frame("frfindings")).height;

    const auto places = kevra::layout(request);
    m_control->setGeometry(pixels(places.editor));
    m_lineNumbers->setGeometry(pixels(places.lineNumbers));
    for (std::size_t i = 0; i < places.panels.size(); ++i)
        frame(panelNames[i]).setGeometry(pixels(places.panels[i]));
    m_fonts->setGeometry(pixels(places.fonts));
    m_information->setGeometry(pixels(places.information));
    m_status->setGeometry(pixels(places.status));
    frame("fr1").setGeometry(pixels(places.image));
    frame("frcol").setGeometry(pixels(places.colour));
    frame("frfindings").setGeometry(pixels(places.findings));
    m_column->align();
}

QString MainWindow::information() const
{
    return m_information->text();
}

void MainWindow::setInformation(std::string_view text)
{
    m_information->setText(textOf(text));
    m_information->setCursorPosition(0);
    // At once, so that the text is shown before the program is busy.
    m_information->repaint();
}

void MainWindow::setTitlePath(std::string_view path)
{
    m_titlePath = path;
    // Qt replaces "[*]" in captions; doubled, it stands for itself.
    m_title = path.empty() ? "KEVRA" : "KEVRA - " + textOf(path).replace("[*]", "[*][*]");
    setWindowTitle(m_title);
    for (auto *window : m_titled)
        window->setWindowTitle(m_title);
    emit documentNamed();
}

void MainWindow::addTitled(QWidget *window)
{
    if (!m_title.isEmpty())
        window->setWindowTitle(m_title);
    m_titled.append(window);
}

void MainWindow::redrawAndFocus()
{
    update();
    activateWindow();
    m_control->setFocus();
}

void MainWindow::syncLineNumbers()
{
    m_column->align();
}

void MainWindow::refreshDocumentStatus()
{
    if (!m_statusSource)
        return;
    m_status->setDocumentStatus(m_statusSource());
}

void MainWindow::showNote(std::string_view text)
{
    m_status->setNotice(textOf(text));
}

void MainWindow::showCaretPlace()
{
    const auto caret = m_control->anchorAndCaret().caret;
    const auto line = m_control->GetLineFromChar(caret);
    const auto start = m_control->lineRange(line).start;
    m_status->setCaret(line + 1, m_control->characters().between(start, caret) + 1);
}

void MainWindow::showCounts()
{
    if (m_status->showsCounts())
        m_status->setCounts(m_control->characters().all(), m_control->lineCount());
}

void MainWindow::textChanged()
{
    showNote("");
    showCaretPlace();
    showWhatCanBeDone();
    showCounts();
}

void MainWindow::setControlVisible(std::string_view control, bool visible)
{
    if (auto *widget = m_inner->findChild<QWidget *>(textOf(control)))
        widget->setVisible(visible);
    showCaretPlace();
    showCounts();
}

void MainWindow::setItemVisible(std::string_view item, bool visible)
{
    m_menus->action(item)->setVisible(visible);
}

void MainWindow::setItemChecked(std::string_view item, bool checked)
{
    m_menus->action(item)->setChecked(checked);
}

void MainWindow::setItemCaption(std::string_view item, std::string_view caption)
{
    m_menus->action(item)->setText(textOf(caption));
}

void MainWindow::setButtonVisible(int number, bool visible)
{
    m_toolBar->setButtonVisible(number, visible);
}

void MainWindow::setButtonImage(int number, int image)
{
    m_toolBar->setButtonImage(number, image);
}

kevra::WindowState MainWindow::windowState() const
{
    if (isMinimized())
        return kevra::WindowState::Minimised;
    return isMaximized() || isFullScreen() ? kevra::WindowState::Maximised : kevra::WindowState::Normal;
}

TwipRect MainWindow::normalGeometry() const
{
    return twips(QRect(pos(), size()));
}

TwipRect MainWindow::innerArea() const
{
    QRect inner = m_inner->rect();
    // The window manager maximises later; the size is known before.
    const auto missing = screen()->availableSize() - size();
    if (isMaximized() && missing.width() > 0)
        inner.setSize(inner.size() + missing);
    return twips(inner);
}

void MainWindow::maximise()
{
    setWindowState(Qt::WindowMaximized);
}

void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    // Without a window manager a maximised window keeps its size, so it is given the screen's. Counts timer
    // ticks rather than time, since loading a large file may have delayed the events.
    auto *clock = new QTimer(this);
    connect(clock, &QTimer::timeout, this, [this, clock, before = size(), ticks = 0]() mutable {
        if (!isMaximized() || size() != before) {
            if (std::exchange(m_restored, false))
                keepFrameOnScreen();
            clock->deleteLater();
            return emit placed();
        }
        if (++ticks < patienceTicks)
            return;
        clock->deleteLater();
        windowHandle()->setGeometry(screen()->availableGeometry()); // the widget itself stays maximised
        emit placed();
    });
    clock->start(patienceTick);
}

void MainWindow::keepFrameOnScreen()
{
    const auto frame = frameGeometry();
    const auto wanted = onAScreen(frame);
    move(wanted.topLeft());
    resize(size() + wanted.size() - frame.size());
}

void MainWindow::placeNormal(const TwipRect &geometry)
{
    setWindowState(Qt::WindowNoState);
    const auto place = onAScreen(pixels(geometry));
    move(place.topLeft());
    resize(place.size());
    m_restored = true;
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    emit closeRequested();
}

bool MainWindow::takesDrop(QEvent &event)
{
    auto &drop = static_cast<QDropEvent &>(event);
    const auto urls = drop.mimeData()->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return false;
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    if (event.type() == QEvent::Drop)
        emit fileDropped(pathBytes(urls.first()));
    return true;
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::WindowActivate:
        if (watched == this) // the first frame need not wait for the clipboard's owner
            QTimer::singleShot(0, this, &MainWindow::showWhetherTextCanBePasted);
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        if (watched != m_inner && takesDrop(*event))
            return true;
        break;
    case QEvent::Resize:
    case QEvent::LayoutRequest:
        if (watched == m_inner)
            arrange();
        break;
    default:
        break;
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace kevra
