// SPDX-License-Identifier: GPL-3.0-or-later
#include "findings/findings_panel.h"

#include "desktop/text_qt.h"
#include "findings/finding_marks_qt.h"
#include "widgets/named_qt.h"

#include <QtCore/QAbstractTableModel>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QShortcut>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFrame>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTextBrowser>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QTreeView>

#include <array>

namespace kevra {

namespace {

enum Column { Line, LevelName, What, columnCount };

constexpr std::array columnTitles{"Line", "Level", "What"};

struct LevelChoice {
    script::Level level;
    const char *caption;
};

constexpr std::array levelChoices{
    LevelChoice{script::Level::Hint, "All findings"},
    LevelChoice{script::Level::Warning, "Errors and warnings"},
    LevelChoice{script::Level::Error, "Errors"},
};

QColor screenColour(Colour colour)
{
    return QColor::fromRgb(qRgb(
        static_cast<int>(colour.red()), static_cast<int>(colour.green()), static_cast<int>(colour.blue())));
}

QString detailsOf(const script::Finding &finding)
{
    const auto &rule = script::ruleInfo(finding.rule);
    auto html = QString("<p><b>%1</b> %2</p>")
                    .arg(textOf(script::code(finding.rule)), textOf(finding.what).toHtmlEscaped());
    for (std::size_t i = 0; i < finding.related.size(); ++i)
        html += QString("<p><a href=\"#%1\">%2</a></p>")
                    .arg(i)
                    .arg(textOf(finding.related[i].what).toHtmlEscaped());
    return html + "<p>" + textOf(rule.why).toHtmlEscaped() + "</p>";
}

} // namespace

/// Rows are created when they come into view.
class FindingRows : public QAbstractTableModel {
public:
    FindingRows(const FindingsCommands &commands, const FindingList &list, QObject *parent)
        : QAbstractTableModel(parent)
        , m_commands(commands)
        , m_list(list)
    {
    }

    void reset()
    {
        beginResetModel();
        m_count = static_cast<int>(m_list.size());
        endResetModel();
    }
    void relabel()
    {
        if (m_count > 0)
            emit dataChanged(index(0, Line), index(m_count - 1, Line));
    }

    [[nodiscard]] int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : m_count;
    }
    [[nodiscard]] int columnCount(const QModelIndex &) const override { return Column::columnCount; }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(columnTitles[static_cast<std::size_t>(section)])
                                       : QVariant();
    }
    [[nodiscard]] QVariant data(const QModelIndex &place, int role) const override
    {
        const auto row = static_cast<std::size_t>(place.row());
        if (row >= m_list.size())
            return {};
        const auto &finding = m_list.at(row);
        if (role == Qt::DecorationRole && place.column() == LevelName)
            return screenColour(colourOf(finding.level()));
        if (role == Qt::ToolTipRole && place.column() == What)
            return textOf(finding.what);
        if (role != Qt::DisplayRole)
            return {};
        switch (place.column()) {
        case Line:
            return static_cast<qlonglong>(m_commands.lineOf(row));
        case LevelName:
            return textOf(script::levelName(finding.level()));
        default:
            return textOf(finding.what);
        }
    }

private:
    const FindingsCommands &m_commands;
    const FindingList &m_list;
    int m_count = 0; ///< rows that the view has been notified of
};

FindingsPanel::FindingsPanel(QFrame &frame, FindingsCommands &commands)
    : QObject(&frame)
    , m_frame(frame)
    , m_commands(commands)
    , m_rows(new FindingRows(commands, commands.list(), this))
    , m_summary(named<QLabel>("lfindings", &frame))
    , m_level(named<QComboBox>("boxlevel", &frame, "Level of findings"))
    , m_list(named<QTreeView>("tfindings", &frame, "Findings"))
    , m_why(named<QTextBrowser>("twhy", &frame, "Reason"))
    , m_fixes(new QVBoxLayout)
{
    setUpControls();
    arrange();
    connectControls();
}

void FindingsPanel::setUpControls()
{
    for (const auto &choice : levelChoices)
        m_level->addItem(choice.caption, static_cast<int>(choice.level));
    m_list->setModel(m_rows);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    const auto characterWidth = m_list->fontMetrics().horizontalAdvance('0');
    m_list->setColumnWidth(Line, 8 * characterWidth);
    m_list->setColumnWidth(LevelName, 14 * characterWidth);
    m_why->setOpenLinks(false);
}

QLayout *FindingsPanel::createTopRow()
{
    auto *row = new QHBoxLayout;
    row->addWidget(m_summary);
    row->addStretch(1);
    row->addWidget(m_level);
    const auto addButton = [&](const char *name, const char *caption, const char *tip, auto action) {
        auto *button = named<QPushButton>(name, &m_frame);
        button->setText(caption);
        button->setToolTip(tip);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, action);
        row->addWidget(button);
    };
    addButton(
        "bcopyfindings", "Cop&y List", "Copy the findings selected, or all of them", [this] { copy(); });
    addButton("bclosefindings", "C&lose", "Close the list (F9)", [this] { emit closeRequested(); });
    return row;
}

void FindingsPanel::arrange()
{
    auto *beside = new QVBoxLayout;
    beside->addWidget(m_why, 1);
    beside->addLayout(m_fixes);
    auto *parts = new QHBoxLayout;
    parts->addWidget(m_list, 3);
    parts->addLayout(beside, 2);
    auto *all = new QVBoxLayout(&m_frame);
    all->setContentsMargins(4, 2, 4, 2);
    all->setSpacing(2);
    all->addLayout(createTopRow());
    all->addLayout(parts, 1);
}

void FindingsPanel::connectControls()
{
    connect(m_level, &QComboBox::activated, this,
        [this] { emit levelChosen(static_cast<script::Level>(m_level->currentData().toInt())); });
    connect(
        m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, &FindingsPanel::currentChanged);
    // Also for the row already selected, since the caret may have moved.
    connect(m_list, &QTreeView::clicked, this, &FindingsPanel::currentChanged);
    connect(m_list, &QTreeView::activated, this, [this] {
        currentChanged();
        emit textRequested();
    });
    connect(m_why, &QTextBrowser::anchorClicked, this, &FindingsPanel::goToRelated);
    connect(new QShortcut(QKeySequence::Copy, m_list, nullptr, nullptr, Qt::WidgetShortcut),
        &QShortcut::activated, this, &FindingsPanel::copy);
}

void FindingsPanel::refill()
{
    const QScopedValueRollback filling(m_filling, true);
    m_rows->reset();
    m_summary->setText(textOf(m_commands.list().summary()));
    showDetails();
}

void FindingsPanel::relabel()
{
    m_rows->relabel();
}

void FindingsPanel::selectRow(std::size_t index)
{
    const QScopedValueRollback filling(m_filling, true);
    m_list->setCurrentIndex(m_rows->index(static_cast<int>(index), Line));
    showDetails();
}

void FindingsPanel::setLevel(script::Level level)
{
    m_level->setCurrentIndex(m_level->findData(static_cast<int>(level)));
}

std::optional<std::size_t> FindingsPanel::current() const
{
    const auto index = m_list->currentIndex();
    if (!index.isValid() || static_cast<std::size_t>(index.row()) >= m_commands.list().size())
        return std::nullopt;
    return static_cast<std::size_t>(index.row());
}

void FindingsPanel::currentChanged()
{
    if (m_filling)
        return;
    if (const auto index = current())
        m_commands.goTo(*index);
    showDetails();
}

void FindingsPanel::goToRelated(const QUrl &link)
{
    const auto index = current();
    const auto number = link.fragment().toULongLong();
    if (!index || number >= m_commands.list().at(*index).related.size())
        return;
    m_commands.goToPlace(m_commands.list().at(*index).related[number].range.start);
    emit textRequested();
}

void FindingsPanel::showDetails()
{
    const auto index = current();
    m_why->setHtml(index ? detailsOf(m_commands.list().at(*index)) : QString());
    showFixes();
}

void FindingsPanel::showFixes()
{
    while (auto *item = m_fixes->takeAt(0)) {
        // Deferred, since it may be the button being pressed.
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
    const auto index = current();
    if (!index)
        return;
    const auto &fixes = m_commands.list().at(*index).fixes;
    for (std::size_t fix = 0; fix < fixes.size(); ++fix) {
        auto *button = new QPushButton(textOf(fixes[fix].title).replace("&", "&&"), &m_frame);
        button->setObjectName(QString("bfix%1").arg(fix + 1));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this,
            [this, offered = OfferedFix{*index, fix}] { m_commands.applyFix(offered); });
        m_fixes->addWidget(button);
    }
}

void FindingsPanel::copy()
{
    const auto selected = m_list->selectionModel()->selectedRows();
    QStringList lines;
    for (std::size_t row = 0; row < m_commands.list().size(); ++row)
        if (selected.isEmpty() || m_list->selectionModel()->isRowSelected(static_cast<int>(row), {}))
            lines << textOf(m_commands.lineText(row));
    QGuiApplication::clipboard()->setText(lines.join('\n'));
}

} // namespace kevra
