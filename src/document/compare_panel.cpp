// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/compare_panel.h"

#include "editor/control_layout_qt.h"
#include "editor/editor_control_qt.h"
#include "widgets/named_qt.h"

#include <QtGui/QShortcut>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>

#include <array>

namespace kevra {

namespace {

using Scintilla = QsciScintillaBase;

constexpr int numberMargin = 0;
constexpr int signMargin = 1;
constexpr Offset maxNumberedRows = 200'000; ///< each number costs a separate call

/// How rows of one kind are marked on one side.
struct Mark {
    RowKind kind;
    bool left;
    long back; ///< the row's background, as Scintilla has colours: 0xBBGGRR
    char sign;
};

constexpr std::array marks{
    Mark{RowKind::Changed, true, 0xB8F4FF, '~'},
    Mark{RowKind::Changed, false, 0xB8F4FF, '~'},
    Mark{RowKind::Removed, true, 0xD0D0FF, '-'},
    Mark{RowKind::Removed, false, 0xE8E8E8, ' '},
    Mark{RowKind::Added, true, 0xE8E8E8, ' '},
    Mark{RowKind::Added, false, 0xC8F4C8, '+'},
};

void defineMarks(EditorControl &side)
{
    // A compared row must stay one line of the control, however long it is.
    side.setLineLimits({.longest = std::numeric_limits<Offset>::max()});
    side.SendScintilla(Scintilla::SCI_SETMARGINTYPEN, static_cast<unsigned long>(numberMargin),
        long{Scintilla::SC_MARGIN_RTEXT});
    side.SendScintilla(Scintilla::SCI_SETMARGINTYPEN, static_cast<unsigned long>(signMargin),
        long{Scintilla::SC_MARGIN_SYMBOL});
    side.SendScintilla(Scintilla::SCI_SETMARGINWIDTHN, static_cast<unsigned long>(signMargin), 14L);
    long signs = 0;
    for (unsigned long i = 0; i < marks.size(); ++i) {
        side.SendScintilla(Scintilla::SCI_MARKERDEFINE, 2 * i, long{Scintilla::SC_MARK_BACKGROUND});
        side.SendScintilla(Scintilla::SCI_MARKERSETBACK, 2 * i, marks[i].back);
        side.SendScintilla(
            Scintilla::SCI_MARKERDEFINE, 2 * i + 1, long{Scintilla::SC_MARK_CHARACTER} + marks[i].sign);
        side.SendScintilla(Scintilla::SCI_MARKERSETFORE, 2 * i + 1, 0L);
        side.SendScintilla(Scintilla::SCI_MARKERSETBACK, 2 * i + 1, marks[i].back);
        signs |= 1L << (2 * i + 1);
    }
    side.SendScintilla(Scintilla::SCI_SETMARGINMASKN, static_cast<unsigned long>(signMargin), signs);
}

EditorControl *newSide(const char *name, const char *title, QWidget *parent)
{
    auto *side = named<EditorControl>(name, parent, title);
    side->setReadOnly(true);
    defineMarks(*side);
    return side;
}

} // namespace

ComparePanel::ComparePanel(QWidget *parent)
    : QWidget(parent)
    , m_leftTitle(named<QLabel>("lcompareleft", this))
    , m_rightTitle(named<QLabel>("lcompareright", this))
    , m_left(newSide("tcompareleft", "Left text", this))
    , m_right(newSide("tcompareright", "Right text", this))
    , m_place(named<QLabel>("lcompareplace", this))
    , m_previous(new QPushButton("&Previous Difference", this))
    , m_next(new QPushButton("&Next Difference", this))
{
    setUpControls();
    arrange();
    connectControls();
    showNothing();
}

void ComparePanel::setUpControls()
{
    m_previous->setAutoDefault(false);
    m_next->setAutoDefault(false);
    m_previous->setObjectName("bcompareprevious");
    m_previous->setToolTip("Shift+F7");
    m_next->setObjectName("bcomparenext");
    m_next->setToolTip("F7");
    for (auto *title : {m_leftTitle, m_rightTitle}) {
        title->setTextFormat(Qt::PlainText);
        title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
}

void ComparePanel::arrange()
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_leftTitle, 0, 0);
    grid->addWidget(m_rightTitle, 0, 1);
    grid->addWidget(m_left, 1, 0);
    grid->addWidget(m_right, 1, 1);
    grid->setRowStretch(1, 1);
    auto *row = new QHBoxLayout;
    row->addWidget(m_previous);
    row->addWidget(m_next);
    row->addWidget(m_place, 1);
    grid->addLayout(row, 2, 0, 1, 2);
}

void ComparePanel::connectControls()
{
    connect(m_previous, &QPushButton::clicked, this, [this] { step(-1); });
    connect(m_next, &QPushButton::clicked, this, [this] { step(1); });
    for (const auto &[key, direction] : {std::pair(QKeySequence("F7"), 1), {QKeySequence("Shift+F7"), -1}}) {
        auto *shortcut = new QShortcut(key, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, by = direction] { step(by); });
    }
    for (const auto &[from, to] : {std::pair(m_left, m_right), {m_right, m_left}}) {
        connect(from->verticalScrollBar(), &QScrollBar::valueChanged, to->verticalScrollBar(),
            &QScrollBar::setValue);
        connect(from->horizontalScrollBar(), &QScrollBar::valueChanged, to->horizontalScrollBar(),
            &QScrollBar::setValue);
    }
}

void ComparePanel::showTexts(const Side &left, const Side &right)
{
    m_comparison = compareTexts(left.text, right.text);
    m_leftTitle->setText(left.title);
    m_rightTitle->setText(right.title);
    m_left->setAccessibleName(left.title);
    m_right->setAccessibleName(right.title);
    fill(*m_left, m_comparison.left, &ComparedRow::left);
    fill(*m_right, m_comparison.right, &ComparedRow::right);
    m_current = 0;
    if (!m_comparison.differences.empty())
        goTo(0);
    showPlace();
}

void ComparePanel::showNothing()
{
    showTexts({}, {});
    m_place->clear();
}

void ComparePanel::fill(EditorControl &side, const std::string &text, Offset ComparedRow::*line)
{
    side.LoadText(text);
    const bool left = line == &ComparedRow::left;
    const auto &rows = m_comparison.rows;
    const bool numbered = std::ssize(rows) <= maxNumberedRows;
    const auto widest = '9' + std::to_string(rows.size());
    side.SendScintilla(Scintilla::SCI_SETMARGINWIDTHN, static_cast<unsigned long>(numberMargin),
        numbered ? side.SendScintilla(
            Scintilla::SCI_TEXTWIDTH, static_cast<unsigned long>(Scintilla::STYLE_LINENUMBER), widest.c_str())
                 : 0L);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (numbered && rows[i].*line != ComparedRow::none) {
            const auto number = std::to_string(rows[i].*line + 1);
            side.SendScintilla(Scintilla::SCI_MARGINSETTEXT, i, number.c_str());
            side.SendScintilla(Scintilla::SCI_MARGINSETSTYLE, i, long{Scintilla::STYLE_LINENUMBER});
        }
        for (std::size_t mark = 0; mark < marks.size(); ++mark)
            if (marks[mark].kind == rows[i].kind && marks[mark].left == left)
                for (const auto part : {2 * mark, 2 * mark + 1})
                    side.SendScintilla(Scintilla::SCI_MARKERADD, i, static_cast<long>(part));
    }
}

void ComparePanel::step(int direction)
{
    const auto count = m_comparison.differences.size();
    if (count > 0)
        goTo((m_current + count + static_cast<std::size_t>(direction)) % count);
}

void ComparePanel::goTo(std::size_t difference)
{
    m_current = difference;
    const auto row = m_comparison.differences[difference];
    for (auto *side : {m_left, m_right}) {
        side->SetSelStart(side->lineRange(row).start);
        side->SetFirstVisibleLine(
            std::max<Offset>(0, ControlLayout(*side).firstRow(row) - ControlLayout(*side).rowsInView() / 3));
    }
    showPlace();
}

void ComparePanel::showPlace()
{
    const auto count = m_comparison.differences.size();
    m_previous->setEnabled(count > 0);
    m_next->setEnabled(count > 0);
    m_place->setText(count == 0 ? QString("No differences")
                                : QString("Difference %1 of %2").arg(m_current + 1).arg(count));
}

} // namespace kevra
