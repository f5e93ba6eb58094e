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

constexpr std::size_t maxSuggestionBytes = 200;

constexpr FindButton buttons[] = {
    {"bfind", "FIND", "Find the first occurence in the text (Return)", &FindCommands::findFirst, 1, false},
    {"bnext", "FIND NEXT", "Find the next occurence (F3, back with Shift+F3)", &FindCommands::findNext, 2,
        false},
    {"brepone", "REPLACE THIS", "Replace what is selected in the text", &FindCommands::replaceOne, 5, true},
    {"brepfind", "REPLACE AND FIND", "Replace what is selected in the text and find the next occurence",
        &FindCommands::replaceAndFind, 6, true},
    {"brepall", "REPLACE ALL", "Replace every occurence in the text", &FindCommands::replaceAll, 7, true},
    {"bnum", "FIND", "Count the occurences in the text", &FindCommands::countOccurrences, 9, false},
};

} // namespace

FindDialog::FindDialog(EditedDocument document, Messages &messages, QWidget *parent)
    : QDialog(parent)
    , m_commands(document, messages, *this)
    , m_text(named<QLineEdit>("tfind", this, "String to find"))
    , m_replacement(named<QLineEdit>("trep", this, "Replacement"))
    , m_count(named<QLineEdit>("tnum", this, "Number of occurrences"))
    , m_case(named<QCheckBox>("ckcase", this))
    , m_whole(named<QCheckBox>("ckwhole", this))
    , m_expression(named<QCheckBox>("ckexpr", this))
    , m_outcome(named<QLabel>("toutcome", this))
{
    setObjectName("ffind");
    setWindowTitle("Find and Replace");
    setModal(false);
    createBoxes();
    arrange();
    createButtons();
}

void FindDialog::createBoxes()
{
    m_text->setToolTip("The text to look for");
    m_replacement->setToolTip("The text that takes its place");
    m_count->setToolTip("How often the string is in the text, parts of words and overlaps included");
    m_count->setReadOnly(true);
    m_case->setText("Match &case");
    m_case->setToolTip("Capital and small letters are different");
    m_whole->setText("&Whole word");
    m_whole->setToolTip("Not as a part of a longer word");
    m_expression->setText("Regular e&xpression");
    m_expression->setToolTip(
        "The string is a pattern such as \"colou?r\"; \\1 in the replacement is its first group");
    connect(m_text, &QLineEdit::textChanged, this, &FindDialog::requestChanged);
    for (auto *box : {m_case, m_whole, m_expression})
        connect(box, &QCheckBox::toggled, this, &FindDialog::requestChanged);
}

void FindDialog::arrange()
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
    grid->addWidget(m_expression, 3, 0, 1, 2);
    label("REPLACE 'STRING TO FIND' WITH:", m_replacement, 4);
    grid->addWidget(m_replacement, 5, 0, 1, 2);
    label("(Leave blank to delete 'string to find'.)", nullptr, 6);
    label("FIND NUMBER OF OCCURENCES:", m_count, 8);
    grid->addWidget(m_count, 9, 0, 1, 2);
    grid->addWidget(m_outcome, 10, 0, 1, 3);
    grid->setColumnMinimumWidth(0, fontMetrics().averageCharWidth() * 24);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(11, 1);
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
    connect(new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3), this), &QShortcut::activated, this,
        [this] { m_commands.findPrevious(); });
}

FindRequest FindDialog::entered() const
{
    return {m_text->text().toStdString(), m_replacement->text().toStdString(),
        m_case->isChecked() ? Case::Match : Case::Ignore, m_whole->isChecked() ? Word::Whole : Word::Any,
        m_expression->isChecked() ? Pattern::Expression : Pattern::Text};
}

std::optional<FindRequest> FindDialog::shownRequest() const
{
    return isVisible() ? std::optional(entered()) : std::nullopt;
}

void FindDialog::suggest(std::string_view text)
{
    const bool oneLine = text.find_first_of("\r\n") == std::string_view::npos;
    if (!text.empty() && oneLine && text.size() <= maxSuggestionBytes)
        m_text->setText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    m_text->selectAll();
}

void FindDialog::showWrapped(std::string_view text)
{
    m_outcome->setText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    m_showNote(text);
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
    if (m_reveal)
        m_reveal();
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
    emit requestChanged();
    m_outcome->clear();
    m_text->setFocus();
    m_text->selectAll();
}

void FindDialog::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    emit requestChanged();
}

} // namespace kevra
