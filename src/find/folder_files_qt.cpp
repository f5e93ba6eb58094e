// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/folder_files_qt.h"

#include "desktop/text_qt.h"

#include <QtCore/QDirIterator>
#include <QtCore/QRegularExpression>

#include <algorithm>

namespace kevra {
namespace {

constexpr std::size_t entriesBetweenQuestions = 256;

/// Fits what any of the patterns fits, and everything when there are none.
QRegularExpression anyOf(std::string_view patterns)
{
    QStringList alternatives;
    for (const auto &pattern : textOf(patterns).split(QRegularExpression("[;\\s]+"), Qt::SkipEmptyParts))
        alternatives << QRegularExpression::wildcardToRegularExpression(pattern);
    return QRegularExpression(alternatives.join('|'), QRegularExpression::CaseInsensitiveOption);
}

} // namespace

std::optional<std::vector<std::string>> filesInFolder(const std::string &folder, std::string_view patterns,
    const std::function<bool(std::size_t found)> &shouldContinue)
{
    const auto fits = anyOf(patterns);
    std::vector<std::string> files;
    // Folders too, so that the question is asked also where there is no file for long.
    QDirIterator it(
        pathText(folder), QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    for (std::size_t entries = 1; it.hasNext(); ++entries) {
        const auto path = it.next();
        if (fits.match(it.fileName()).hasMatch() && it.fileInfo().isFile())
            files.push_back(pathBytes(path));
        if (entries % entriesBetweenQuestions == 0 && !shouldContinue(files.size()))
            return std::nullopt;
    }
    std::ranges::sort(files);
    return files;
}

} // namespace kevra
