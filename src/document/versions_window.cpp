// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/versions_window.h"

#include "desktop/text_qt.h"
#include "document/compare_panel.h"
#include "widgets/named_qt.h"
#include "widgets/window_size_qt.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

namespace kevra {

VersionsWindow::VersionsWindow(VersionsCommands &commands, QWidget *parent)
    : QDialog(parent)
    , m_commands(commands)
    , m_everything(new QCheckBox("Show the versions of &all files, and texts that were given up", this))
    , m_list(named<QTreeWidget>("lversions", this, "Versions"))
    , m_panel(new ComparePanel(this))
    , m_empty(named<QLabel>("lnoversions", this))
{
    setObjectName("fversions");
    setWindowTitle("Versions");
    resizeWithinScreen(*this, {960, 680});
    m_everything->setObjectName("ckallversions");
    connect(m_everything, &QCheckBox::toggled, this, &VersionsWindow::fill);
    auto *column = new QVBoxLayout(this);
    auto *parts = new QSplitter(Qt::Vertical, this);
    parts->addWidget(list());
    parts->addWidget(m_panel);
    parts->setStretchFactor(1, 1);
    parts->setChildrenCollapsible(false);
    parts->setSizes({1, 2}); // proportions
    column->addWidget(parts, 1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setObjectName("bversionsclose");
    for (auto *button :
        {addButton("bversionrestore", "&Restore", "Put this version in the text's place; Undo takes it back",
             &VersionsWindow::restore),
            addButton("bversionopen", "&Open in a New Window", "Open a copy of this version beside the text",
                &VersionsWindow::openElsewhere),
            addButton("bversiondelete", "&Delete", "Delete this version for good", &VersionsWindow::remove)})
        buttons->addButton(button, QDialogButtonBox::ActionRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
}

QWidget *VersionsWindow::list()
{
    m_list->setHeaderLabels({"Time", "Size", "Reason", "File"});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &VersionsWindow::showChosen);
    auto *part = new QWidget(this);
    auto *column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_everything);
    column->addWidget(m_empty);
    column->addWidget(m_list, 1);
    return part;
}

QPushButton *VersionsWindow::addButton(
    const char *name, const char *caption, const char *toolTip, void (VersionsWindow::*command)())
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, command);
    m_buttons.append(button);
    return button;
}

void VersionsWindow::showVersions()
{
    fill();
    show();
    raise();
    activateWindow();
    m_list->setFocus();
}

void VersionsWindow::fill()
{
    using Scope = VersionsCommands::Scope;
    m_rows = m_commands.rows(m_everything->isChecked() ? Scope::Everything : Scope::Document);
    m_list->clear();
    for (const auto &row : m_rows) {
        const auto time = QDateTime::fromSecsSinceEpoch(row.time);
        auto *item = new QTreeWidgetItem({QLocale().toString(time, QLocale::ShortFormat),
            QLocale().formattedDataSize(row.size), textOf(row.reason), pathText(row.path)});
        item->setToolTip(0, time.toString(Qt::ISODate));
        m_list->addTopLevelItem(item);
    }
    m_empty->setText(m_everything->isChecked() ? "Nothing is kept." : "No version of this text is kept.");
    m_empty->setVisible(m_rows.empty());
    m_list->setCurrentItem(m_list->topLevelItem(0));
    showChosen();
}

const VersionRow *VersionsWindow::chosen() const
{
    const auto index = m_list->indexOfTopLevelItem(m_list->currentItem());
    return index < 0 ? nullptr : &m_rows[static_cast<std::size_t>(index)];
}

void VersionsWindow::showChosen()
{
    const auto *row = chosen();
    for (auto *button : m_buttons)
        button->setEnabled(row != nullptr);
    const auto texts = row ? m_commands.comparison(*row) : std::nullopt;
    if (texts)
        m_panel->showTexts(
            {pathText(texts->leftTitle), texts->left}, {pathText(texts->rightTitle), texts->right});
    else
        m_panel->showNothing();
}

void VersionsWindow::restore()
{
    if (const auto *row = chosen())
        m_commands.restore(*row);
    showChosen();
}

void VersionsWindow::openElsewhere()
{
    if (const auto *row = chosen())
        m_commands.openInNewWindow(*row);
}

void VersionsWindow::remove()
{
    if (const auto *row = chosen(); row && m_commands.remove(*row))
        fill();
}

} // namespace kevra
