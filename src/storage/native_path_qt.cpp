// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/native_path_qt.h"

#include "desktop/text_qt.h"

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

namespace kevra {

std::string nativePath(const std::string &path)
{
    const std::string_view start = defaultTempFolder;
    if (!path.starts_with(start))
        return path;
    const auto rest = path.substr(start.size());
    if (!rest.empty() && rest[0] != '\\' && rest[0] != '/')
        return path;
    const auto documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QDir().mkpath(documents);
    return pathBytes(documents) + (rest.empty() ? rest : '/' + rest.substr(1));
}

} // namespace kevra
