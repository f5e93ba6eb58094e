// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/folder_files_qt.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <algorithm>

namespace kevra {

std::vector<std::string> filesInFolder(const std::string &folder, std::string_view patterns)
{
    const auto names = QString::fromUtf8(patterns.data(), static_cast<qsizetype>(patterns.size()))
                           .split(QRegularExpression("[;\\s]+"), Qt::SkipEmptyParts);
    std::vector<std::string> files;
    QDirIterator it(QFile::decodeName(QByteArray::fromStdString(folder)), names, QDir::Files,
        QDirIterator::Subdirectories);
    while (it.hasNext())
        files.push_back(QFile::encodeName(it.next()).toStdString());
    std::ranges::sort(files);
    return files;
}

} // namespace kevra
