// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/encoding_dialog.h"

#include "desktop/text_qt.h"
#include "widgets/named_qt.h"
#include "widgets/window_size_qt.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QTreeWidgetItemIterator>
#include <QtWidgets/QVBoxLayout>

namespace kevra {
namespace {

constexpr int encodingRole = Qt::UserRole;
constexpr int searchTextRole = Qt::UserRole + 1; ///< the text that the filter searches
constexpr QSize usualSize{360, 420};

QTreeWidgetItem *groupItem(QTreeWidget &list, ScriptGroup group)
{
    const auto name = textOf(groupName(group));
    const auto found = list.findItems(name, Qt::MatchExactly);
    if (!found.isEmpty())
        return found.front();
    auto *item = new QTreeWidgetItem(&list, {name});
    auto font = list.font();
    font.setBold(true);
    item->setFont(0, font);
    item->setFlags(Qt::ItemIsEnabled);
    item->setExpanded(true);
    return item;
}

} // namespace

EncodingDialog::EncodingDialog(const QString &title, Encoding current, QWidget *parent)
    : QDialog(parent)
    , m_filter(named<QLineEdit>("tencoding", this, "Filter"))
    , m_list(named<QTreeWidget>("lencodings", this, "Character sets"))
{
    setObjectName("fencoding");
    setWindowTitle(title);
    m_filter->setPlaceholderText("Filter by name, language or script");
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    m_list->setHeaderHidden(true);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    m_ok->setObjectName("bok");
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("bcancel");
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_filter);
    column->addWidget(m_list);
    column->addWidget(buttons);
    fill(current);
    resizeWithinScreen(*this, usualSize);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_filter, &QLineEdit::textChanged, this, &EncodingDialog::filter);
    connect(m_list, &QTreeWidget::itemActivated, this, [this] {
        if (chosen())
            accept();
    });
    connect(
        m_list, &QTreeWidget::currentItemChanged, this, [this] { m_ok->setEnabled(chosen().has_value()); });
}

void EncodingDialog::fill(Encoding current)
{
    for (const auto &set : characterSets()) {
        auto *item = new QTreeWidgetItem(groupItem(*m_list, set.group), {textOf(set.name)});
        item->setData(0, encodingRole, static_cast<int>(set.encoding));
        item->setData(0, searchTextRole,
            textOf(set.name) + ' ' + textOf(set.labels) + ' ' + textOf(groupName(set.group)));
        if (set.encoding == current)
            m_list->setCurrentItem(item);
    }
}

void EncodingDialog::filter(const QString &text)
{
    QTreeWidgetItem *first = nullptr;
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        auto *group = m_list->topLevelItem(i);
        bool any = false;
        for (int j = 0; j < group->childCount(); ++j) {
            auto *item = group->child(j);
            const bool fits
                = item->data(0, searchTextRole).toString().contains(text.trimmed(), Qt::CaseInsensitive);
            item->setHidden(!fits);
            any = any || fits;
            if (fits && !first)
                first = item;
        }
        group->setHidden(!any);
    }
    if (!m_list->currentItem() || m_list->currentItem()->isHidden() || !first)
        m_list->setCurrentItem(first);
}

std::optional<Encoding> EncodingDialog::chosen() const
{
    const auto *item = m_list->currentItem();
    if (!item || item->isHidden() || !item->data(0, encodingRole).isValid())
        return std::nullopt;
    return static_cast<Encoding>(item->data(0, encodingRole).toInt());
}

bool EncodingDialog::eventFilter(QObject *watched, QEvent *event)
{
    // Arrow keys move through the list while the filter has the focus.
    if (event->type() == QEvent::KeyPress) {
        const auto key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown)
            return QCoreApplication::sendEvent(m_list, event);
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace kevra
