// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/native_path.h"

#include <filesystem>

namespace kevra {

std::string nativePath(const std::string &path, const std::string &documents)
{
    const std::string_view start = defaultTempFolder;
    if (!path.starts_with(start))
        return path;
    const auto rest = path.substr(start.size());
    if (!rest.empty() && rest[0] != '\\' && rest[0] != '/')
        return path;
    std::error_code error; // ignored: using the path will report the failure
    std::filesystem::create_directories(documents, error);
    return documents + (rest.empty() ? rest : '/' + rest.substr(1));
}

} // namespace kevra
