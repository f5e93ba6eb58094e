// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/status_row_panel.h"

#include "widgets/named_qt.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

namespace kevra {

namespace {

/// A box's label goes when the box goes.
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

} // namespace

StatusRow::StatusRow(QWidget *parent)
    : QFrame(parent)
    , m_status(named<QLabel>("tstatus", this))
    , m_notice(named<QLabel>("tnotice", this, "Notice"))
{
    setObjectName("frstatus");
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(m_status);
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_notice->installEventFilter(this);
    row->addWidget(m_notice, 1);
    m_line = addPlace("tline", "Line", 7);
    m_column = addPlace("tcolumn", "Column", 7);
    m_characters = addPlace("tcount", "Characters", 9);
    m_lines = addPlace("tlcount", "Lines", 7);
}

QLineEdit *StatusRow::addPlace(const char *name, const char *caption, int digits)
{
    auto *box = named<QLineEdit>(name, this, caption);
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::ClickFocus);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QString(digits, u'0')) + 14);
    box->setToolTip(caption);
    auto *label = new PlaceLabel(caption, *box, this);
    layout()->addWidget(label);
    layout()->addWidget(box);
    return box;
}

void StatusRow::setDocumentStatus(const QString &encoding, const QString &lineEnds, const QString &saved)
{
    QStringList parts{encoding, lineEnds, saved};
    parts.removeAll(QString());
    m_status->setText(parts.join(u"  \u00b7  "));
}

void StatusRow::setNotice(const QString &text)
{
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

void StatusRow::setCaret(qint64 line, qint64 column)
{
    m_line->setText(QString::number(line));
    m_column->setText(QString::number(column));
}

void StatusRow::setCounts(qint64 characters, qint64 lines)
{
    m_characters->setText(QString::number(characters));
    m_lines->setText(QString::number(lines));
}

bool StatusRow::showsPlaces() const
{
    return !m_line->isHidden();
}

} // namespace kevra
