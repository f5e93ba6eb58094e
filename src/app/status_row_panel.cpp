// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/status_row_panel.h"

#include "desktop/text_qt.h"
#include "widgets/named_qt.h"

#include <QtGui/QAccessible>
#include <QtGui/QActionGroup>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolButton>

#include <array>

namespace kevra {

namespace {

constexpr std::array offeredLineEnds{LineEnds::CrLf, LineEnds::Lf, LineEnds::Cr};

/// Hides a box's label together with the box.
class PlaceLabel : public QLabel {
public:
    PlaceLabel(const QString &text, QWidget &box, QWidget *parent)
        : QLabel(text, parent)
    {
        box.installEventFilter(this);
    }

private:
    bool eventFilter(QObject *box, QEvent *event) override
    {
        if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
            setVisible(event->type() == QEvent::ShowToParent);
        return QLabel::eventFilter(box, event);
    }
};

QToolButton *flatButton(const char *name, QWidget *parent)
{
    auto *button = named<QToolButton>(name, parent);
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

StatusRow::StatusRow(QWidget *parent)
    : QFrame(parent)
    , m_encoding(addMenuButton("bencoding", "Encoding", "The character set of the file"))
    , m_lineEnds(addMenuButton("blineends", "Line ends", "How the lines of the file end"))
    , m_status(named<QLabel>("tstatus", this))
    , m_notice(named<QLabel>("tnotice", this, "Notice"))
    , m_offer(flatButton("bdeclare", this))
    , m_analysis(flatButton("banalysis", this))
    , m_reopen(nullptr)
    , m_mark(nullptr)
    , m_ends(new QActionGroup(this))
    , m_place(named<QLabel>("tplace", this))
{
    setObjectName("frstatus");
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(m_encoding);
    row->addWidget(m_lineEnds);
    row->addWidget(m_status);
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_notice->installEventFilter(this);
    row->addWidget(m_notice, 1);
    row->addWidget(m_offer);
    m_offer->setToolTip("Change what the text says of its character set, as an edit that can be undone");
    m_offer->hide();
    connect(m_offer, &QToolButton::clicked, this, &StatusRow::offerTaken);
    fillEncodingMenu();
    fillLineEndsMenu();
    row->addWidget(m_analysis);
    m_analysis->setToolTip("Show the list of findings (F9)");
    m_analysis->hide();
    connect(m_analysis, &QToolButton::clicked, this, &StatusRow::analysisChosen);
    row->addWidget(m_place);
    m_line = addPlace({"tline", "Line", "Ln", 7, 5});
    m_column = addPlace({"tcolumn", "Column", "Col", 7, 4});
    m_characters = addPlace({"tcount", "Characters", "Chars", 9, 7});
    m_lines = addPlace({"tlcount", "Lines", "Lines", 7, 5});
}

QToolButton *StatusRow::addMenuButton(const char *name, const char *accessibleName, const char *toolTip)
{
    auto *button = flatButton(name, this);
    button->setAccessibleName(accessibleName);
    button->setToolTip(toolTip);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(new QMenu(button));
    return button;
}

void StatusRow::fillEncodingMenu()
{
    auto *menu = m_encoding->menu();
    m_reopen = menu->addAction("&Reopen as...", this, &StatusRow::reopenChosen);
    m_reopen->setObjectName("mreopenas");
    menu->addAction("&Save as...", this, &StatusRow::saveAsChosen)->setObjectName("msaveencoding");
    menu->addSeparator();
    m_mark = menu->addAction("Byte-order &mark");
    m_mark->setObjectName("mmark");
    m_mark->setCheckable(true);
    connect(m_mark, &QAction::triggered, this, &StatusRow::markChosen);
}

void StatusRow::fillLineEndsMenu()
{
    for (const auto ends : offeredLineEnds) {
        const auto name = textOf(lineEndsName(ends));
        auto *action = m_lineEnds->menu()->addAction(name);
        action->setObjectName('m' + name.toLower());
        action->setCheckable(true);
        action->setData(static_cast<int>(ends));
        m_ends->addAction(action);
        connect(action, &QAction::triggered, this, [this, ends] { emit lineEndsChosen(ends); });
    }
}

QLineEdit *StatusRow::addPlace(const Place &place)
{
    auto *box = named<QLineEdit>(place.name, this, place.caption);
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::ClickFocus);
    box->setAlignment(Qt::AlignRight);
    const auto widthOf
        = [&](int digits) { return box->fontMetrics().horizontalAdvance(QString(digits, u'0')) + 14; };
    box->setMinimumWidth(widthOf(place.fewDigits));
    box->setMaximumWidth(widthOf(place.digits));
    box->setToolTip(place.caption);
    auto *label = new PlaceLabel(place.caption, *box, this);
    m_captions.emplace_back(place, label);
    layout()->addWidget(label);
    layout()->addWidget(box);
    return box;
}

void StatusRow::fitPlaces()
{
    int room = width() - layout()->totalMinimumSize().width();
    for (const auto &[place, label] : m_captions)
        if (!label->isHidden())
            room -= label->fontMetrics().horizontalAdvance(place.caption) - label->minimumSizeHint().width();
    for (const auto &[place, label] : m_captions)
        label->setText(room < 0 ? place.shortCaption : place.caption);
}

void StatusRow::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    fitPlaces();
}

void StatusRow::setDocumentStatus(const FileStatus &status)
{
    const auto &format = status.encoding.format;
    m_encoding->setText(textOf(encodingName(format)));
    m_reopen->setEnabled(status.canReopen);
    m_mark->setEnabled(format.encoding == Encoding::Utf8);
    m_mark->setChecked(format.mark);
    m_lineEnds->setText(textOf(lineEndsName(format.lineEnds)));
    const auto ends = format.lineEnds == LineEnds::None ? LineEnds::CrLf : format.lineEnds;
    m_ends->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (auto *action : m_ends->actions())
        action->setChecked(action->data().toInt() == static_cast<int>(ends));
    m_status->setText(status.saved ? "saved" : "not saved");
    m_encodingNotice = textOf(status.encoding.notice);
    showNotice();
    m_offer->setText(textOf(status.encoding.offer));
    m_offer->setVisible(!status.encoding.offer.empty());
    fitPlaces();
}

void StatusRow::setNotice(const QString &text)
{
    m_message = text;
    showNotice();
}

void StatusRow::showNotice()
{
    const auto text = m_message.isEmpty() ? m_encodingNotice : m_message;
    if (m_notice->toolTip() == text)
        return;
    m_notice->setToolTip(text);
    m_notice->setAccessibleName(text.isEmpty() ? "Notice" : text);
    fitNotice();
    if (text.isEmpty())
        return;
    QAccessibleEvent spoken(m_notice, QAccessible::Alert);
    QAccessible::updateAccessibility(&spoken);
}

void StatusRow::fitNotice()
{
    const auto text
        = m_notice->toolTip().isEmpty() ? QString() : QStringLiteral(" \u00b7  ") + m_notice->toolTip();
    m_notice->setText(m_notice->fontMetrics().elidedText(text, Qt::ElideMiddle, m_notice->width()));
}

bool StatusRow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_notice && event->type() == QEvent::Resize)
        fitNotice();
    return QFrame::eventFilter(watched, event);
}

void StatusRow::setAnalysis(const QString &summary)
{
    m_analysis->setText(summary);
    m_analysis->setVisible(!summary.isEmpty());
    fitPlaces();
}

void StatusRow::setCaret(qint64 line, qint64 column)
{
    m_line->setText(QString::number(line));
    m_column->setText(QString::number(column));
    m_place->setText(QString("Line %1, Column %2").arg(line).arg(column));
    if (m_place->isHidden() == m_line->isHidden()) {
        m_place->setVisible(m_line->isHidden());
        fitPlaces();
    }
}

void StatusRow::setCounts(qint64 characters, qint64 lines)
{
    m_characters->setText(QString::number(characters));
    m_lines->setText(QString::number(lines));
}

bool StatusRow::showsCounts() const
{
    return !m_characters->isHidden();
}

} // namespace kevra
