// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/file_dialogs_qt.h"

#include "desktop/text_qt.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTreeView>

namespace kevra {

namespace {

constexpr QSize detailsSize(860, 520);

/// The dialog parses this line: the last parenthesis holds the patterns, the text before it is shown.
QString filterLine(const FileFilter &filter)
{
    auto patterns = QString::fromStdString(filter.patterns);
    if (patterns == "*.*")
        patterns = "*"; // also matches names without a dot
    return QString::fromStdString(filter.description) + " (" + patterns.replace(u';', u' ') + u')';
}

QStringList setFilters(QFileDialog &dialog, const std::vector<FileFilter> &filters)
{
    QStringList lines;
    for (const auto &filter : filters)
        lines << filterLine(filter);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(lines);
    // The dialog trims the descriptions, so set them again.
    if (auto *types = dialog.findChild<QComboBox *>("fileTypeCombo"))
        for (int i = 0; i < types->count(); ++i)
            types->setItemText(i, QString::fromStdString(filters[static_cast<std::size_t>(i)].description));
    return lines;
}

void startIn(QFileDialog &dialog, const std::string &folder)
{
    if (const QFileInfo start(pathText(folder)); start.isDir())
        dialog.setDirectory(start.absoluteFilePath());
}

/// Qt's own dialog truncates sizes and dates. A native dialog has no list of this name.
void showDetailsInFull(QFileDialog &dialog)
{
    dialog.resize(dialog.size().expandedTo(detailsSize));
    const auto *list = dialog.findChild<QTreeView *>("treeView");
    if (!list)
        return;
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

std::vector<std::string> runDialog(QFileDialog &dialog)
{
    showDetailsInFull(dialog);
    std::vector<std::string> paths;
    if (dialog.exec() == QDialog::Accepted)
        for (const auto &file : dialog.selectedUrls())
            if (file.isLocalFile())
                paths.push_back(pathBytes(file));
    return paths;
}

std::vector<std::string> open(const OpenRequest &request, QFileDialog::FileMode mode)
{
    QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(request.title));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(mode);
    setFilters(dialog, request.filters);
    startIn(dialog, request.folder);
    return runDialog(dialog);
}

} // namespace

std::optional<std::string> FileDialogsQt::openFile(const OpenRequest &request)
{
    const auto paths = open(request, QFileDialog::ExistingFile);
    return paths.empty() ? std::nullopt : std::optional(paths.front());
}

std::vector<std::string> FileDialogsQt::openFiles(const OpenRequest &request)
{
    return open(request, QFileDialog::ExistingFiles);
}

std::optional<SaveChoice> FileDialogsQt::saveFile(const SaveRequest &request)
{
    QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(request.title));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // The caller asks about an existing file, in its own words.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    const auto filters = setFilters(dialog, request.filters);
    if (request.filterIndex >= 1 && request.filterIndex <= filters.size())
        dialog.selectNameFilter(filters[request.filterIndex - 1]);
    startIn(dialog, request.folder);
    if (!request.proposedName.empty()) {
        const QFileInfo proposed(pathText(request.proposedName));
        if (proposed.isAbsolute())
            dialog.setDirectory(proposed.absolutePath());
        dialog.selectFile(proposed.fileName());
    }
    const auto paths = runDialog(dialog);
    if (paths.empty())
        return std::nullopt;
    const auto chosen = static_cast<int>(filters.indexOf(dialog.selectedNameFilter()));
    return SaveChoice{paths.front(), chosen < 0 ? request.filterIndex : chosen + 1};
}

std::optional<std::string> FileDialogsQt::chooseFolder(const std::string &title)
{
    QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(title));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    const auto paths = runDialog(dialog);
    return paths.empty() ? std::nullopt : std::optional(paths.front());
}

std::optional<Colour> ColourDialogQt::choose(Colour initial)
{
    const QColor before(
        static_cast<int>(initial.red()), static_cast<int>(initial.green()), static_cast<int>(initial.blue()));
    const auto chosen = QColorDialog::getColor(before, QApplication::activeWindow());
    if (!chosen.isValid())
        return std::nullopt;
    const auto part = [](int value) { return static_cast<std::uint32_t>(value); };
    return Colour{part(chosen.red()) | part(chosen.green()) << 8 | part(chosen.blue()) << 16};
}

} // namespace kevra
