// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/multi_dialog.h"

#include "desktop/text_qt.h"
#include "find/folder_files_qt.h"
#include "text/flag_guard.h"
#include "widgets/named_qt.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMimeData>
#include <QtCore/QTimer>
#include <QtGui/QDropEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>

#include <filesystem>

namespace kevra {
namespace {

constexpr auto firstPatterns = "*.html;*.htm;*.shtml;*.asp;*.php;*.css;*.js;*.vbs;*.wsf;*.wsc;*.hta;*.txt";
constexpr QSize firstSize(800, 520);
constexpr int pathWidth = 320;
constexpr int hitsWidth = 60;
enum Column { PathColumn, HitsColumn, OutcomeColumn };
constexpr int lineRole = Qt::UserRole; ///< of a line, from 1
constexpr int pathRole = Qt::UserRole + 1; ///< of a file, in bytes: what is shown need not be the name

} // namespace

MultiDialog::MultiDialog(
    FileStore &files, OpenDocument &open, Messages &messages, FileDialogs &dialogs, QWidget *parent)
    : QDialog(parent)
    , m_dialogs(dialogs)
    , m_commands(files, open, messages, *this)
    , m_text(named<QLineEdit>("tmfind", this, "String to find"))
    , m_replacement(named<QLineEdit>("tmrep", this, "Replacement"))
    , m_patterns(named<QLineEdit>("tmpattern", this, "File name patterns"))
    , m_case(named<QCheckBox>("ckmcase", this))
    , m_whole(named<QCheckBox>("ckmwhole", this))
    , m_expression(named<QCheckBox>("ckmexpr", this))
    , m_backup(named<QCheckBox>("ckmbackup", this))
    , m_everyFolder(named<QCheckBox>("ckmevery", this))
    , m_list(named<QTreeWidget>("lmfiles", this, "Files"))
    , m_progress(named<QProgressBar>("pmprogress", this, "Progress"))
    , m_summary(named<QLabel>("tmsummary", this))
{
    setObjectName("fmulti");
    setWindowTitle("Multi-Page Replace");
    setAcceptDrops(true);
    createControls();
    createButtons();
    arrange();
    connectControls();
    resize(firstSize.boundedTo(screen()->availableSize()));
}

void MultiDialog::createControls()
{
    m_text->setToolTip("The text to look for");
    m_replacement->setToolTip("The text that takes its place");
    m_patterns->setText(firstPatterns);
    m_patterns->setToolTip("Which files of a folder are taken; separated by semicolons");
    m_case->setText("Match &case");
    m_case->setToolTip("Capital and small letters are different");
    m_whole->setText("&Whole word");
    m_whole->setToolTip("Not as a part of a longer word");
    m_backup->setText("&Keep a backup");
    m_backup->setToolTip("Keep the old content of each changed file beside it, as \".bak\"");
    m_expression->setText("Regular e&xpression");
    m_expression->setToolTip(
        "The string is a pattern such as \"colou?r\"; \\1 in the replacement is its first group");
    m_everyFolder->setText("&Every folder");
    m_everyFolder->setToolTip("Also the folders named .git and node_modules");
    m_list->setHeaderLabels({"File", "Hits", "Result"});
    m_list->setUniformRowHeights(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setToolTip("Files and folders can be dropped here; a double click opens a file, or a line of it");
    m_list->header()->setStretchLastSection(true);
    m_list->headerItem()->setTextAlignment(HitsColumn, Qt::AlignCenter);
    m_list->setColumnWidth(PathColumn, pathWidth);
    m_list->setColumnWidth(HitsColumn, hitsWidth);
    m_progress->setRange(0, 1);
    m_progress->setValue(0);
    m_summary->setText("Add files or a folder, or drop them here.");
    m_summary->setWordWrap(true);
}

QPushButton *MultiDialog::button(const char *name, const char *caption, const char *tip)
{
    auto *made = named<QPushButton>(name, this);
    made->setText(caption);
    made->setToolTip(tip);
    made->setAutoDefault(false);
    return made;
}

void MultiDialog::createButtons()
{
    m_preview = button("bmpreview", "PREVIEW", "Show the number of hits in each file; nothing is written");
    m_replace = button(
        "bmreplace", "REPLACE ALL", "Replace in every file with hits; without a preview, show that first");
    m_addFolder = button("bmfolder", "ADD FOLDER...", "Add the files of a folder that fit the pattern");
    m_addFiles = button("bmadd", "ADD FILES...", "Add files to the list");
    m_remove = button("bmremove", "REMOVE", "Take the selected files off the list");
    m_open = button("bmopen", "OPEN", "Show the chosen line in the editor");
    m_undo = button("bmundo", "UNDO REPLACEMENT",
        "Give the files their old content, those that have not been changed since");
    m_undo->setEnabled(false);
    m_cancel = button("bmcancel", "CANCEL", "Stop before the next file");
    m_cancel->setEnabled(false);
    m_preview->setDefault(true);
}

void MultiDialog::arrange()
{
    auto *grid = new QGridLayout(this);
    const auto row = [&](int at, const char *text, QWidget *field, QPushButton *beside) {
        auto *label = new QLabel(text, this);
        label->setBuddy(field);
        label->setWordWrap(true); // on a narrow screen
        grid->addWidget(label, at, 0);
        grid->addWidget(field, at, 1, 1, 3);
        grid->addWidget(beside, at, 4);
    };
    row(0, "STRING TO FIND:", m_text, m_preview);
    row(1, "REPLACE 'STRING TO FIND' WITH:", m_replacement, m_replace);
    auto *hint = new QLabel("(Leave blank to delete 'string to find'.)", this);
    grid->addWidget(hint, 2, 1, 1, 3);
    grid->addWidget(m_case, 3, 1);
    grid->addWidget(m_whole, 3, 2);
    grid->addWidget(m_expression, 3, 3);
    grid->addWidget(m_undo, 3, 4);
    row(4, "FILES OF A FOLDER:", m_patterns, m_addFolder);
    grid->addWidget(m_everyFolder, 5, 1);
    grid->addWidget(m_backup, 5, 2, 1, 2);
    grid->addWidget(m_list, 6, 0, 4, 4);
    grid->addWidget(m_addFiles, 6, 4, Qt::AlignTop);
    grid->addWidget(m_remove, 7, 4, Qt::AlignTop);
    grid->addWidget(m_open, 8, 4, Qt::AlignTop);
    grid->addWidget(m_progress, 10, 0, 1, 4);
    grid->addWidget(m_cancel, 10, 4);
    grid->addWidget(m_summary, 11, 0, 1, 5);
    grid->setRowStretch(9, 1);
    grid->setColumnStretch(3, 1);
}

void MultiDialog::connectControls()
{
    connect(m_preview, &QPushButton::clicked, this, [this] { run([this] { m_commands.preview(); }); });
    connect(m_replace, &QPushButton::clicked, this, [this] { run([this] { m_commands.replaceAll(); }); });
    connect(m_addFolder, &QPushButton::clicked, this, &MultiDialog::addFolder);
    connect(m_addFiles, &QPushButton::clicked, this, &MultiDialog::addFiles);
    connect(m_remove, &QPushButton::clicked, this, &MultiDialog::removeSelected);
    connect(m_open, &QPushButton::clicked, this, &MultiDialog::openChosen);
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, &MultiDialog::openChosen);
    connect(m_undo, &QPushButton::clicked, this, [this] { run([this] { m_commands.undoReplacement(); }); });
    connect(m_cancel, &QPushButton::clicked, this, [this] { m_cancelled = true; });
}

void MultiDialog::run(const std::function<void()> &work)
{
    if (m_running)
        return;
    const FlagGuard running(m_running);
    m_cancelled = false;
    auto *const focus = focusWidget();
    for (auto *control : findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        if (qobject_cast<QPushButton *>(control) || qobject_cast<QLineEdit *>(control))
            control->setEnabled(control == m_cancel);
    work();
    for (auto *control : findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        control->setEnabled(control != m_cancel && (control != m_undo || m_undoPossible));
    if (focus && focus != m_cancel)
        focus->setFocus();
}

MultiRequest MultiDialog::entered() const
{
    return {
        {m_text->text().toStdString(), m_replacement->text().toStdString(),
            m_case->isChecked() ? Case::Match : Case::Ignore, m_whole->isChecked() ? Word::Whole : Word::Any,
            m_expression->isChecked() ? Pattern::Expression : Pattern::Text},
        m_backup->isChecked()};
}

void MultiDialog::showFiles(const std::vector<ListedFile> &files)
{
    m_list->clear();
    QList<QTreeWidgetItem *> items;
    for (const auto &file : files) {
        items.append(new QTreeWidgetItem({pathText(file.path)}));
        items.back()->setToolTip(PathColumn, pathText(file.path));
        items.back()->setData(PathColumn, pathRole, QByteArray::fromStdString(file.path));
        items.back()->setTextAlignment(HitsColumn, Qt::AlignCenter);
    }
    m_list->addTopLevelItems(items);
    for (std::size_t i = 0; i < files.size(); ++i)
        showFile(i, files[i]);
}

void MultiDialog::showFile(std::size_t index, const ListedFile &file)
{
    auto *item = m_list->topLevelItem(static_cast<int>(index));
    const bool counted = file.hits > 0 || file.outcome == FileOutcome::NoHits;
    item->setText(HitsColumn, counted ? QString::number(file.hits) : QString());
    item->setText(OutcomeColumn, QString::fromStdString(outcomeText(file.outcome)));
    item->setToolTip(OutcomeColumn, item->text(OutcomeColumn));
    qDeleteAll(item->takeChildren());
    for (const auto &line : file.lines) {
        auto *child = new QTreeWidgetItem(
            item, {QString("%1:  %2").arg(line.number).arg(QString::fromStdString(line.text).simplified())});
        child->setData(PathColumn, lineRole, QVariant::fromValue<qint64>(line.number));
        child->setFirstColumnSpanned(true);
    }
}

void MultiDialog::openChosen()
{
    const auto *item = m_list->currentItem();
    if (!item || m_running)
        return;
    const auto *file = item->parent() ? item->parent() : item;
    const auto *line = item->parent() || item->childCount() == 0 ? item : item->child(0);
    emit lineChosen(file->data(PathColumn, pathRole).toByteArray().toStdString(),
        std::max<qint64>(1, line->data(PathColumn, lineRole).toLongLong()));
}

void MultiDialog::showUndo(bool possible)
{
    m_undoPossible = possible;
}

bool MultiDialog::processEvents()
{
    QCoreApplication::processEvents();
    return !m_cancelled && isVisible(); // hidden when the program quits
}

bool MultiDialog::shouldContinue(std::size_t done, std::size_t total)
{
    m_progress->setRange(0, static_cast<int>(total));
    m_progress->setValue(static_cast<int>(done));
    return processEvents();
}

void MultiDialog::showSummary(const std::string &text)
{
    m_summary->setText(QString::fromStdString(text));
}

void MultiDialog::addFiles()
{
    m_commands.addFiles(m_dialogs.openFiles({"Files to replace in", {{"All Files", "*"}}}));
}

void MultiDialog::addFolder()
{
    if (const auto folder = m_dialogs.chooseFolder("Folder to replace in"))
        add({*folder});
}

bool MultiDialog::continueListing(std::size_t found)
{
    m_progress->setRange(0, 0); // the total is not known
    m_summary->setText(QString("%1 files found...").arg(found));
    return processEvents();
}

void MultiDialog::add(const std::vector<std::string> &paths)
{
    run([&] {
        std::vector<std::string> all;
        for (const auto &path : paths) {
            if (std::error_code unknown; !std::filesystem::is_directory(path, unknown)) {
                all.push_back(path);
                continue;
            }
            const auto before = all.size();
            const auto inside = filesInFolder(path, m_patterns->text().toStdString(),
                m_everyFolder->isChecked() ? Folders::Every : Folders::WithoutTools,
                [&](std::size_t found) { return continueListing(before + found); });
            if (!inside)
                break;
            all.insert(all.end(), inside->begin(), inside->end());
        }
        m_progress->setRange(0, 1);
        m_progress->setValue(0);
        if (m_cancelled)
            showSummary("Cancelled. No file has been added.");
        else
            m_commands.addFiles(all);
    });
}

void MultiDialog::removeSelected()
{
    std::vector<std::size_t> indexes;
    for (const auto &row : m_list->selectionModel()->selectedRows())
        indexes.push_back(static_cast<std::size_t>((row.parent().isValid() ? row.parent() : row).row()));
    m_commands.removeFiles(indexes);
}

void MultiDialog::dragEnterEvent(QDragEnterEvent *event)
{
    if (m_running || !event->mimeData()->hasUrls())
        return;
    // Never a move: the source program would delete the files.
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void MultiDialog::dropEvent(QDropEvent *event)
{
    if (m_running)
        return;
    std::vector<std::string> paths;
    for (const auto &url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths.push_back(pathBytes(url));
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // Deferred, so that the source program does not wait while a folder is searched.
    QTimer::singleShot(0, this, [this, paths] { add(paths); });
}

void MultiDialog::reject()
{
    // While something runs, Escape and the close button cancel it instead.
    if (m_running)
        m_cancelled = true;
    else
        QDialog::reject();
}

} // namespace kevra
