// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/folder_files_qt.h"

#include "desktop/text_qt.h"

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace kevra {
namespace {

constexpr std::size_t entriesBetweenQuestions = 256;

/// Matches names that match any of the patterns; all names when there are none.
QRegularExpression anyOf(std::string_view patterns)
{
    QStringList alternatives;
    for (const auto &pattern : textOf(patterns).split(QRegularExpression("[;\\s]+"), Qt::SkipEmptyParts))
        alternatives << QRegularExpression::wildcardToRegularExpression(pattern);
    return QRegularExpression(alternatives.join('|'), QRegularExpression::CaseInsensitiveOption);
}

bool isLookedInto(std::string_view name, Folders folders)
{
    if (name == ".git" || name == "node_modules")
        return folders == Folders::Every;
    return !name.starts_with('.');
}

} // namespace

std::optional<std::vector<std::string>> filesInFolder(const std::string &folder, std::string_view patterns,
    Folders folders, const std::function<bool(std::size_t found)> &shouldContinue)
{
    const auto fits = anyOf(patterns);
    std::vector<std::string> files;
    std::error_code error;
    std::size_t entries = 0;
    // Folders count too, so that the user can also cancel where there are few files.
    for (fs::recursive_directory_iterator it(folder, fs::directory_options::skip_permission_denied, error),
         end;
         it != end; it.increment(error)) {
        if (++entries % entriesBetweenQuestions == 0 && !shouldContinue(files.size()))
            return std::nullopt;
        const auto name = it->path().filename().string();
        std::error_code unknown;
        const bool isFolder = it->is_directory(unknown);
        if (isFolder && !isLookedInto(name, folders))
            it.disable_recursion_pending();
        else if (!name.starts_with('.') && it->is_regular_file(unknown)
            && fits.match(pathText(name)).hasMatch())
            files.push_back(it->path().string());
    }
    std::ranges::sort(files);
    return files;
}

} // namespace kevra
