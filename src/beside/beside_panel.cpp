// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/beside_panel.h"

#include "widgets/named_qt.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kevra {
namespace {

constexpr int narrowest = 200;
constexpr double smallest = 0.25; ///< what the engine scales by
constexpr double largest = 5;
constexpr double zoomStep = 1.1;

struct Width {
    const char *caption;
    int pixels; ///< 0: what the dock has
};
constexpr Width widths[] = {{"Full width", 0}, {"360", 360}, {"768", 768}, {"1280", 1280}};

enum class Colours { AsDesktop, Light, Dark };
struct ColoursRow {
    const char *caption;
    Colours colours;
};
constexpr ColoursRow colours[]
    = {{"Desktop Colors", Colours::AsDesktop}, {"Light", Colours::Light}, {"Dark", Colours::Dark}};
constexpr int darkBelow = 128; ///< of 255: a window's lightness

struct Tool {
    const char *name;
    const char *caption;
    const char *tip;
    void (BesidePanel::*asked)();
};
constexpr Tool tools[] = {
    {"bbesidereload", "Reload", "Load the page again", &BesidePanel::reloadAsked},
    {"bbesidestop", "Stop", "End the page and its scripts", &BesidePanel::stopAsked},
    {"bbesidebrowser", "Open in Browser", "Open the file as it was last saved", &BesidePanel::browserAsked},
};

struct Zoom {
    const char *name;
    const char *caption;
    const char *tip;
    int steps;
};
constexpr Zoom zooms[] = {
    {"bbesidesmaller", "\u2212", "Show the page smaller", -1},
    {"bbesidelarger", "+", "Show the page larger", 1},
    {"bbesidenormal", "1:1", "Show the page in its natural size", 0},
};

} // namespace

BesidePanel::BesidePanel(QWidget *parent)
    : QDockWidget("Page", parent)
    , m_area(named<QScrollArea>("beside", this, "Page beside the text"))
    , m_frame(new QWidget)
    , m_note(named<QLabel>("lbeside", this))
    , m_link(named<QLineEdit>("tbesideurl", this, "Link target"))
{
    setObjectName("dbeside");
    setFeatures(QDockWidget::DockWidgetClosable);
    setAllowedAreas(Qt::RightDockWidgetArea);
    auto *inner = new QWidget(this);
    auto *column = new QVBoxLayout(inner);
    column->setContentsMargins({});
    column->setSpacing(2);
    auto *bar = named<QToolBar>("tbeside", inner, "Page");
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    addTools(*bar);
    m_note->setTextFormat(Qt::PlainText); // a page could have any file shown as a picture
    m_note->setWordWrap(true);
    m_note->setMinimumWidth(1); // or a long word would widen the window
    m_note->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_note->setMargin(4);
    m_note->hide();
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setWidget(m_frame);
    m_area->viewport()->installEventFilter(this);
    m_link->setReadOnly(true);
    m_link->setPlaceholderText("Click links to check URL code");
    column->addWidget(bar);
    column->addWidget(m_note);
    column->addWidget(m_area, 1);
    column->addWidget(m_link);
    inner->setMinimumWidth(narrowest);
    setWidget(inner);
}

void BesidePanel::addTools(QToolBar &bar)
{
    m_width = named<QComboBox>("cbesidewidth", &bar, "Page width");
    for (const auto &width : widths)
        m_width->addItem(width.caption, width.pixels);
    m_width->setToolTip("How many pixels wide the page believes its window to be");
    connect(m_width, &QComboBox::activated, this, &BesidePanel::layOutPage);
    bar.addWidget(m_width);
    m_colours = named<QComboBox>("cbesidecolors", &bar, "Page colors");
    for (const auto &row : colours)
        m_colours->addItem(row.caption, static_cast<int>(row.colours));
    m_colours->setToolTip("Which colors a page is told that its reader prefers");
    connect(m_colours, &QComboBox::activated, this, &BesidePanel::chooseColours);
    bar.addWidget(m_colours);
    const auto add = [&](const auto &row, auto step) {
        auto *action = bar.addAction(row.caption, this, step);
        action->setObjectName(row.name);
        action->setToolTip(row.tip);
        bar.widgetForAction(action)->setObjectName(QString(row.name) + "key");
    };
    for (const auto &row : zooms) {
        add(row, [this, steps = row.steps] { zoomBy(steps); });
        bar.widgetForAction(bar.actions().last())->setAccessibleName(row.tip);
    }
    for (const auto &row : tools)
        add(row, [this, asked = row.asked] { emit(this->*asked)(); });
}

void BesidePanel::setPageWidget(QWidget *page)
{
    m_page = page;
    m_scale = 0; // whatever was chosen before there was a page
    chooseColours();
    page->setAccessibleName("Page");
    layOutPage();
    page->show();
}

void BesidePanel::showPage(bool shown)
{
    m_area->setVisible(shown);
}

void BesidePanel::showNote(BesideNote kind, const QString &note)
{
    // A page can have parts refused a thousand times a second.
    const auto text = note.simplified();
    if (m_notes[kind] == text)
        return;
    m_notes[kind] = text;
    QStringList lines;
    for (const auto &[any, line] : m_notes)
        if (!line.isEmpty())
            lines.append(line);
    m_note->setText(lines.join('\n'));
    m_note->setVisible(!lines.isEmpty());
}

void BesidePanel::setLinkTarget(const QString &address)
{
    m_link->setText(address);
    m_link->setCursorPosition(0);
}

void BesidePanel::zoomBy(int steps)
{
    m_zoom = steps == 0 ? 1 : std::clamp(m_zoom * std::pow(zoomStep, steps), smallest, largest);
    layOutPage();
}

void BesidePanel::layOutPage()
{
    const auto available = m_area->viewport()->size();
    const int wanted = m_width->currentData().toInt();
    // A device wider than the dock is shown smaller, as far as it can still be read; then it is scrolled.
    const double fit = wanted == 0 ? 1 : std::clamp(double(available.width()) / wanted, smallest, 1.0);
    const double asked = std::clamp(fit * m_zoom, smallest, largest);
    const int width = wanted == 0 ? available.width() : qRound(wanted * asked);
    // Whole pixels of the screen: the page must not find one less than the width chosen.
    const double scale = wanted == 0 ? asked : double(width) / wanted;
    const QSize size(width, available.height());
    m_frame->resize(size.expandedTo({available.width(), 0}));
    if (m_page)
        m_page->setGeometry({(m_frame->width() - width) / 2, 0, width, available.height()});
    if (std::exchange(m_scale, scale) != scale)
        emit scaleChanged(scale);
}

void BesidePanel::chooseColours()
{
    const auto chosen = static_cast<Colours>(m_colours->currentData().toInt());
    const bool darkDesktop = palette().color(QPalette::Window).lightness() < darkBelow;
    emit darkChosen(chosen == Colours::AsDesktop ? darkDesktop : chosen == Colours::Dark);
}

void BesidePanel::changeEvent(QEvent *event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        chooseColours();
}

void BesidePanel::closeEvent(QCloseEvent *event)
{
    QDockWidget::closeEvent(event);
    emit closed();
}

bool BesidePanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_area->viewport() && event->type() == QEvent::Resize)
        layOutPage();
    return QDockWidget::eventFilter(watched, event);
}

} // namespace kevra
