// SPDX-License-Identifier: GPL-3.0-or-later
// Converts texts and paths between the logic, which uses bytes, and the windows.
#pragma once

#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <string>
#include <string_view>

namespace kevra {

[[nodiscard]] inline QString textOf(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// The QString for a path given as file system bytes.
[[nodiscard]] inline QString pathText(const std::string &bytes)
{
    return QFile::decodeName(QByteArray::fromStdString(bytes));
}

[[nodiscard]] inline std::string pathBytes(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

/// The path of a local file's address. A name need not be valid text; QUrl::toLocalFile would lose the bytes
/// that are not.
[[nodiscard]] inline std::string pathBytes(const QUrl &file)
{
    const auto encoded = file.path(QUrl::FullyEncoded).toLatin1();
    const auto path = QByteArray::fromPercentEncoding(encoded).toStdString();
    return file.host().isEmpty() ? path : "//" + file.host().toStdString() + path;
}

} // namespace kevra
