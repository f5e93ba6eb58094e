// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/recovery_list_dialog.h"

#include "desktop/text_qt.h"
#include "widgets/named_qt.h"
#include "widgets/window_size_qt.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <array>

namespace kevra {
namespace {

constexpr int beginningRole = Qt::UserRole;
constexpr int sizeColumn = 1;
constexpr QSize usualSize{760, 480};

struct ListButton {
    const char *name;
    const char *caption;
    const char *toolTip;
    RecoveryChoice choice;
    QDialogButtonBox::ButtonRole role;
};

constexpr std::array listButtons{
    ListButton{"brecoversave", "&Save As...", "Save the chosen text under a name", RecoveryChoice::Save,
        QDialogButtonBox::ActionRole},
    ListButton{"brecoverlook", "S&how", "Look at the chosen text before it is saved", RecoveryChoice::Look,
        QDialogButtonBox::ActionRole},
    ListButton{"brecoverdiscard", "&Discard",
        "The chosen text is not wanted; File, Versions keeps it for a time", RecoveryChoice::Discard,
        QDialogButtonBox::ActionRole},
    ListButton{"brecoverlater", "Decide &Later", "Keep the texts until the next start", RecoveryChoice::Later,
        QDialogButtonBox::RejectRole},
};

QTreeWidgetItem *itemOf(const RecoveryRow &row)
{
    const auto time = QDateTime::fromSecsSinceEpoch(row.time);
    const auto path = row.path.empty() ? QString("new work") : pathText(row.path);
    const auto beginning = textOf(row.beginning);
    auto *item = new QTreeWidgetItem(
        {row.time == 0 ? QString("not known") : QLocale().toString(time, QLocale::ShortFormat),
            QLocale().formattedDataSize(static_cast<qint64>(row.size)), path,
            beginning.section('\n', 0, 0, QString::SectionSkipEmpty).simplified()});
    item->setToolTip(0, row.time == 0 ? QString() : time.toString(Qt::ISODate));
    item->setTextAlignment(sizeColumn, Qt::AlignRight | Qt::AlignVCenter);
    item->setToolTip(2, path);
    item->setData(0, beginningRole, beginning);
    return item;
}

} // namespace

RecoveryListDialog::RecoveryListDialog(QWidget *parent)
    : QDialog(parent)
    , m_list(named<QTreeWidget>("lrecovered", this, "Texts from the last session"))
    , m_beginning(named<QPlainTextEdit>("trecovered", this, "First lines of the text"))
{
    setObjectName("frecovery");
    setWindowTitle("Texts from the last session");
    setModal(true);
    resizeWithinScreen(*this, usualSize);
    auto *question = named<QLabel>("lrecoveryquestion", this);
    question->setText("There are files stored from Autosave. Do you want to save them?");
    auto *column = new QVBoxLayout(this);
    column->addWidget(question);
    column->addWidget(parts(), 1);
    column->addWidget(buttons());
    connect(m_list, &QTreeWidget::currentItemChanged, this, &RecoveryListDialog::showChosen);
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, [this] { finish(RecoveryChoice::Look); });
    connect(this, &QDialog::rejected, this, [this] { finish(RecoveryChoice::Later); });
}

QWidget *RecoveryListDialog::parts()
{
    m_list->setHeaderLabels({"Time", "Size", "File", "First line"});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_list->header()->setMaximumSectionSize(usualSize.width() / 2);
    m_beginning->setReadOnly(true);
    m_beginning->setTabChangesFocus(true);
    m_beginning->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto *split = new QSplitter(Qt::Vertical, this);
    split->addWidget(m_list);
    split->addWidget(m_beginning);
    split->setChildrenCollapsible(false);
    return split;
}

QDialogButtonBox *RecoveryListDialog::buttons()
{
    auto *box = new QDialogButtonBox(this);
    for (const auto &row : listButtons) {
        auto *button = box->addButton(row.caption, row.role);
        button->setObjectName(row.name);
        button->setToolTip(row.toolTip);
        button->setDefault(row.choice == RecoveryChoice::Save);
        if (row.choice != RecoveryChoice::Later)
            connect(button, &QPushButton::clicked, this, [this, choice = row.choice] { finish(choice); });
    }
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return box;
}

RecoveryAnswer RecoveryListDialog::choose(std::span<const RecoveryRow> rows)
{
    fill(rows);
    // If the program quits meanwhile, the texts stay for the next start.
    m_choice = RecoveryChoice::Later;
    show();
    m_list->setFocus();
    m_waiting.exec();
    return {m_choice, static_cast<std::size_t>(m_list->indexOfTopLevelItem(m_list->currentItem()))};
}

void RecoveryListDialog::endList()
{
    hide();
}

void RecoveryListDialog::finish(RecoveryChoice choice)
{
    m_choice = choice;
    m_waiting.quit();
}

void RecoveryListDialog::fill(std::span<const RecoveryRow> rows)
{
    const int before = m_list->indexOfTopLevelItem(m_list->currentItem());
    m_list->clear();
    for (const auto &row : rows)
        m_list->addTopLevelItem(itemOf(row));
    m_list->setCurrentItem(m_list->topLevelItem(std::clamp(before, 0, m_list->topLevelItemCount() - 1)));
    showChosen();
}

void RecoveryListDialog::showChosen()
{
    const auto *item = m_list->currentItem();
    m_beginning->setPlainText(item ? item->data(0, beginningRole).toString() : QString());
}

} // namespace kevra
