// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_dialog.h"

#include "desktop/text_qt.h"
#include "settings/fonts.h"

#include <QtGui/QScreen>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>

#include <algorithm>

namespace kevra {
namespace {

constexpr Colour yesColour{61440};
constexpr Colour noColour{248};
constexpr int rowSpacing = 8; // pixels
constexpr int swatchWidth = 48; // pixels
constexpr int contentCharacters = 120; // wide enough for every heading on one line

enum Column { HeadingColumn, EntryColumn, ButtonColumn, SecondButtonColumn };

QColor screenColour(Colour colour)
{
    return QColor(
        static_cast<int>(colour.red()), static_cast<int>(colour.green()), static_cast<int>(colour.blue()));
}

void paint(QWidget &widget, QPalette::ColorRole role, const QColor &colour)
{
    auto palette = widget.palette();
    palette.setColor(role, colour);
    widget.setPalette(palette);
}

/// Selects `value`, adding it if it is not listed; numbers are added in order.
void selectText(QComboBox &box, const QString &value)
{
    if (const auto at = box.findText(value, Qt::MatchFixedString); at >= 0)
        return box.setCurrentIndex(at);
    bool isNumber = false;
    const auto number = value.toInt(&isNumber);
    int at = 0;
    while (at < box.count() && (!isNumber || box.itemText(at).toInt() < number))
        ++at;
    box.insertItem(at, value);
    box.setCurrentIndex(at);
}

QLabel *heading(const QString &caption, QWidget *parent)
{
    auto *label = new QLabel(caption, parent);
    label->setWordWrap(true);
    return label;
}

} // namespace

SettingsDialog::SettingsDialog(SettingsCommands &commands, QWidget *parent)
    : QDialog(parent)
    , m_commands(commands)
{
    setObjectName("fsetkevra");
    setWindowTitle("Settings");
}

void SettingsDialog::build()
{
    auto *content = new QWidget;
    auto *groups = new QVBoxLayout(content);
    groups->addWidget(switches());
    groups->addWidget(entries());
    groups->addWidget(program());
    groups->addStretch();

    auto *scroll = new QScrollArea(this);
    scroll->setWidget(content);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);

    auto *closing = new QDialogButtonBox(QDialogButtonBox::Close, this);
    closing->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(closing, &QDialogButtonBox::rejected, this, &QDialog::reject);

    m_notStored = new QLabel(this);
    m_notStored->setObjectName("lnotstored");
    m_notStored->setWordWrap(true);
    auto *below = new QHBoxLayout;
    below->addWidget(m_notStored, 1);
    below->addWidget(closing);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(scroll);
    layout->addLayout(below);
    fitScreen(*content);
    showEntries();
}

void SettingsDialog::fitScreen(const QWidget &content)
{
    const int width
        = std::max(content.sizeHint().width(), fontMetrics().averageCharWidth() * contentCharacters);
    const auto margins = layout()->contentsMargins();
    const int below = findChild<QDialogButtonBox *>()->sizeHint().height() + layout()->spacing();
    const QSize wanted(width + margins.left() + margins.right(),
        content.layout()->heightForWidth(width) + margins.top() + margins.bottom() + below + 3 * rowSpacing);
    resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
}

QGridLayout *SettingsDialog::gridIn(QWidget &box)
{
    auto *grid = new QGridLayout(&box);
    grid->setVerticalSpacing(rowSpacing);
    grid->setColumnStretch(HeadingColumn, 1);
    return grid;
}

QWidget *SettingsDialog::switches()
{
    auto *box = new QGroupBox;
    auto *grid = gridIn(*box);
    for (const auto &row : optionRows)
        if (!row.group.heading.empty())
            addYesNo(*grid, row);
    return box;
}

void SettingsDialog::addYesNo(QGridLayout &grid, const OptionRow &row)
{
    const auto &group = row.group;
    auto *lamp = new QLabel;
    lamp->setObjectName(textOf(group.lamp));
    lamp->setAccessibleDescription(textOf(group.heading));
    lamp->setAutoFillBackground(true);
    lamp->setAlignment(Qt::AlignCenter);
    lamp->setMinimumWidth(swatchWidth);
    paint(*lamp, QPalette::WindowText, Qt::black);
    m_lamps.emplace_back(row.option, lamp);

    const auto choice = [&](const GroupControl &control, const QString &caption, bool on) {
        auto *chosen = button(control.name, caption, control.tip, [this, option = row.option, on] {
            m_commands.setOption(option, on);
            showLamps();
        });
        chosen->setAccessibleName(textOf(control.tip));
        return chosen;
    };
    const auto line = grid.rowCount();
    grid.addWidget(heading(textOf(group.heading), this), line, HeadingColumn);
    grid.addWidget(lamp, line, EntryColumn);
    grid.addWidget(choice(group.yes, "Yes", true), line, ButtonColumn);
    grid.addWidget(choice(group.no, "No", false), line, SecondButtonColumn);
}

QWidget *SettingsDialog::entries()
{
    auto *box = new QGroupBox;
    auto *grid = gridIn(*box);
    grid->setColumnStretch(EntryColumn, 1);

    m_tempFolder = lineEdit(groups::tempFolder);
    m_interval = listBox(groups::interval, autosaveIntervals);
    m_face = listBox(groups::fontFace, fontFaces);
    m_size = listBox(groups::fontSize, fontSizes);
    addEntry(*grid, groups::tempFolder, m_tempFolder,
        [this] { m_commands.setTempFolder(pathBytes(m_tempFolder->text())); });
    addEntry(*grid, groups::interval, m_interval,
        [this] { m_commands.setInterval(m_interval->currentText().toStdString()); });
    addColours(*grid);
    addEntry(*grid, groups::fontFace, m_face,
        [this] { m_commands.setFontFace(m_face->currentText().toStdString()); });
    addEntry(*grid, groups::fontSize, m_size,
        [this] { m_commands.setFontSize(m_size->currentText().toStdString()); });
    return box;
}

void SettingsDialog::addRow(QGridLayout &grid, const QString &caption, QWidget *entry, QPushButton *apply)
{
    const auto row = grid.rowCount();
    grid.addWidget(heading(caption, this), row, HeadingColumn);
    grid.addWidget(entry, row, EntryColumn);
    grid.addWidget(apply, row, ButtonColumn);
}

void SettingsDialog::addEntry(
    QGridLayout &grid, const EntryGroup &group, QWidget *entry, std::function<void()> apply)
{
    if (auto *line = qobject_cast<QLineEdit *>(entry))
        connect(line, &QLineEdit::returnPressed, this, act(apply));
    addRow(grid, textOf(group.label.empty() ? group.heading : group.label), entry,
        button(group.apply.name, "APPLY", group.apply.tip, std::move(apply)));
}

void SettingsDialog::addColours(QGridLayout &grid)
{
    m_colour = new QFrame;
    m_colour->setObjectName("piccol");
    m_colour->setFrameShape(QFrame::StyledPanel);
    m_colour->setAutoFillBackground(true);
    m_colour->setMinimumWidth(swatchWidth);
    m_sample = new QLabel("<SAMPLE TEXT>");
    m_sample->setObjectName("tsample");
    m_sample->setTextFormat(Qt::PlainText);
    m_sample->setToolTip("Sample text in colorcoding color.");
    m_sample->setAutoFillBackground(true);
    m_sample->setAlignment(Qt::AlignCenter);
    // White like the document, in any theme.
    paint(*m_sample, QPalette::Window, Qt::white);

    auto *choice = new QWidget;
    auto *line = new QHBoxLayout(choice);
    line->setContentsMargins({});
    line->addWidget(button("bpick", "CHOOSE", "Show color selector", [this] {
        m_commands.chooseCodeColour();
        showColour();
    }));
    line->addWidget(m_colour);
    line->addWidget(m_sample, 1);
    m_applyColour = button("bapply", "APPLY", "Set color highlighting color", [this] {
        m_commands.applyColour();
        showColour();
    });
    addRow(grid, "CHOOSE COLORCODING HIGHLIGHT COLOR", choice, m_applyColour);
}

QWidget *SettingsDialog::program()
{
    auto *box = new QGroupBox;
    auto &grid = *gridIn(*box);
    grid.setColumnStretch(EntryColumn, 1);
    m_program = lineEdit(groups::program);
    m_menuText = lineEdit(groups::menuText);
    grid.addWidget(heading(textOf(groups::program.heading), this), grid.rowCount(), HeadingColumn, 1, -1);
    auto *choice = new QWidget;
    auto *line = new QHBoxLayout(choice);
    line->setContentsMargins({});
    line->addWidget(m_program);
    line->addWidget(button("bbrowse", "BROWSE", "Find program executable for EXE function", [this] {
        if (const auto path = m_commands.browseProgram())
            m_program->setText(pathText(*path));
    }));
    const auto apply = [this] { m_commands.program().SetExternalProgram(pathBytes(m_program->text())); };
    connect(m_program, &QLineEdit::returnPressed, this, act(apply));
    addEntry(grid, groups::program, choice, apply);
    addEntry(grid, groups::menuText, m_menuText,
        [this] { m_commands.program().SetExternalMenuText(m_menuText->text().toStdString()); });
    auto *remove = button("bremove", "UNDO 'EXE' SETTING", "Remove the program from the menu", [this] {
        m_commands.program().RemoveExternalProgram();
        showProgram();
    });
    grid.addWidget(remove, grid.rowCount(), EntryColumn);
    return box;
}

QLineEdit *SettingsDialog::lineEdit(const EntryGroup &group)
{
    auto *line = new QLineEdit;
    line->setObjectName(textOf(group.entry.name));
    line->setAccessibleName(textOf(group.entry.tip));
    return line;
}

QComboBox *SettingsDialog::listBox(const EntryGroup &group, std::span<const std::string_view> items)
{
    auto *box = new QComboBox;
    box->setObjectName(textOf(group.entry.name));
    box->setAccessibleName(textOf(group.entry.tip));
    for (const auto item : items)
        box->addItem(textOf(item));
    return box;
}

QPushButton *SettingsDialog::button(
    std::string_view name, const QString &caption, std::string_view tip, std::function<void()> clicked)
{
    auto *made = new QPushButton(caption, this);
    made->setObjectName(textOf(name));
    made->setToolTip(textOf(tip));
    // Return in an entry must apply only that entry.
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, act(std::move(clicked)));
    return made;
}

std::function<void()> SettingsDialog::act(std::function<void()> command)
{
    return [this, command = std::move(command)] {
        command();
        m_notStored->setText(
            m_commands.isStored() ? "" : "In force now, but the settings file cannot be written.");
    };
}

void SettingsDialog::showSettings()
{
    // The entries are refreshed each time the dialog is shown.
    if (!layout())
        build();
    else if (!isVisible())
        showEntries();
    show();
    raise();
    activateWindow();
}

void SettingsDialog::done(int result)
{
    QDialog::done(result);
    m_commands.dialogClosed();
}

bool SettingsDialog::event(QEvent *event)
{
    if (layout() && (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate)) {
        showLamps();
        showColour();
    }
    return QDialog::event(event);
}

void SettingsDialog::showLamps()
{
    for (const auto &[option, lamp] : m_lamps) {
        const bool on = m_commands.optionsShown().lamps[option];
        lamp->setText(on ? "YES" : "NO");
        paint(*lamp, QPalette::Window, screenColour(on ? yesColour : noColour));
    }
}

void SettingsDialog::showColour()
{
    const auto colour = screenColour(m_commands.shownColour());
    paint(*m_colour, QPalette::Window, colour);
    paint(*m_sample, QPalette::WindowText, colour);
    m_applyColour->setEnabled(m_commands.hasChosenColour());
}

void SettingsDialog::showEntries()
{
    const auto &options = m_commands.optionsShown();
    const auto &application = m_commands.application();
    m_tempFolder->setText(pathText(application.tempFolder));
    selectText(*m_interval, QString::number(options.autosaveMinutes));
    selectText(*m_face, QString::fromStdString(options.fontFace));
    selectText(*m_size, QString::fromStdString(options.fontSize));
    showProgram();
}

void SettingsDialog::showProgram()
{
    const auto &application = m_commands.application();
    m_program->setText(application.programPath == "none" ? QString() : pathText(application.programPath));
    m_menuText->setText(QString::fromStdString(application.programMenuText));
}

} // namespace kevra
