// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/find_dialog.h"

#include "widgets/named_qt.h"

#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace kevra {
namespace {

struct FindButton {
    const char *name;
    const char *caption;
    const char *tip;
    void (FindCommands::*command)();
    int row;
    bool edits;
};

constexpr FindButton buttons[] = {
    {"bfind", "FIND", "Find the first occurence in the text (Return)", &FindCommands::findFirst, 1, false},
    {"bnext", "FIND NEXT", "Find the next occurence (F3)", &FindCommands::findNext, 2, false},
    {"brepone", "REPLACE THIS", "Replace what is selected in the text", &FindCommands::replaceOne, 4, true},
    {"brepall", "REPLACE ALL", "Replace every occurence in the text", &FindCommands::replaceAll, 5, true},
    {"bnum", "FIND", "Count the occurences in the text", &FindCommands::countOccurrences, 7, false},
};

} // namespace

FindDialog::FindDialog(EditorSurface &document, DocumentState &state, Messages &messages, QWidget *parent)
    : QDialog(parent)
    , m_commands(document, state, messages, *this)
    , m_text(named<QLineEdit>("tfind", this, "String to find"))
    , m_replacement(named<QLineEdit>("trep", this, "Replacement"))
    , m_count(named<QLineEdit>("tnum", this, "Number of occurrences"))
    , m_case(named<QCheckBox>("ckcase", this))
    , m_whole(named<QCheckBox>("ckwhole", this))
    , m_outcome(named<QLabel>("toutcome", this))
{
    setObjectName("ffind");
    setWindowTitle("Find and Replace");
    setModal(false);
    m_text->setToolTip("The text to look for");
    m_replacement->setToolTip("The text that takes its place");
    m_count->setToolTip("How often the string is in the text, parts of words and overlaps included");
    m_count->setReadOnly(true);
    m_case->setText("Match &case");
    m_case->setToolTip("Capital and small letters are different");
    m_whole->setText("&Whole word");
    m_whole->setToolTip("Not as a part of a longer word");
    layOut();
    createButtons();
}

void FindDialog::layOut()
{
    auto *grid = new QGridLayout(this);
    const auto label = [&](const char *text, QWidget *buddy, int row) {
        auto *widget = new QLabel(text, this);
        widget->setBuddy(buddy);
        grid->addWidget(widget, row, 0, 1, 2);
    };
    label("STRING TO FIND:", m_text, 0);
    grid->addWidget(m_text, 1, 0, 1, 2);
    grid->addWidget(m_case, 2, 0);
    grid->addWidget(m_whole, 2, 1);
    label("REPLACE 'STRING TO FIND' WITH:", m_replacement, 3);
    grid->addWidget(m_replacement, 4, 0, 1, 2);
    label("(Leave blank to delete 'string to find'.)", nullptr, 5);
    label("FIND NUMBER OF OCCURENCES:", m_count, 6);
    grid->addWidget(m_count, 7, 0, 1, 2);
    grid->addWidget(m_outcome, 8, 0, 1, 3);
    grid->setColumnMinimumWidth(0, fontMetrics().averageCharWidth() * 24);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(9, 1);
}

void FindDialog::createButtons()
{
    auto *grid = static_cast<QGridLayout *>(layout());
    for (const auto &row : buttons) {
        auto *button = named<QPushButton>(row.name, this);
        button->setText(row.caption);
        button->setToolTip(row.tip);
        button->setAutoDefault(false);
        grid->addWidget(button, row.row, 2);
        connect(button, &QPushButton::clicked, this, [this, row] {
            if (row.edits && m_mayEdit && !m_mayEdit())
                return;
            m_outcome->clear();
            (m_commands.*row.command)();
        });
    }
    findChild<QPushButton *>("bfind")->setDefault(true);
    findChild<QPushButton *>("bnum")->setAccessibleName("Find number of occurences");
    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated,
        findChild<QPushButton *>("bnext"), &QPushButton::click);
}

FindRequest FindDialog::entered() const
{
    return {m_text->text().toStdString(), m_replacement->text().toStdString(),
        m_case->isChecked() ? Case::Match : Case::Ignore, m_whole->isChecked() ? Word::Whole : Word::Any};
}

void FindDialog::showCount(Offset count)
{
    m_count->setText(QString::number(count));
}

void FindDialog::showReplaced(Offset count)
{
    m_outcome->setText(QString("%1 replaced.").arg(count));
}

void FindDialog::hitSelected()
{
    if (!m_hitPlace || !isVisible())
        return;
    const auto hit = m_hitPlace();
    const auto frame = frameGeometry();
    if (!frame.intersects(hit))
        return;
    constexpr int distance = 8;
    const auto area = screen()->availableGeometry();
    const int below = hit.bottom() + distance;
    const int above = hit.top() - distance - frame.height();
    if (below + frame.height() <= area.bottom())
        move(frame.x(), below);
    else if (above >= area.top())
        move(frame.x(), above);
}

void FindDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    m_outcome->clear();
    m_text->setFocus();
    m_text->selectAll();
}

} // namespace kevra
