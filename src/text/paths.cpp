// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/paths.h"

#include "text/words.h"

#include <algorithm>
#include <filesystem>

namespace kevra {
namespace {

/// In a path that starts with "/", "\\" is an ordinary character; in any other path it separates names too.
constexpr std::string_view separatorsIn(std::string_view path)
{
    return path.starts_with('/') ? "/" : "/\\";
}

} // namespace

std::string_view fileName(std::string_view path)
{
    const auto at = path.find_last_of(separatorsIn(path));
    return at == std::string_view::npos ? path : path.substr(at + 1);
}

std::string_view parentFolder(std::string_view path)
{
    const auto at = path.find_last_of(separatorsIn(path));
    if (at == std::string_view::npos)
        return {};
    const bool root = at == 0 || (at == 2 && path[1] == ':');
    return path.substr(0, root ? at + 1 : at);
}

std::string_view extension(std::string_view path)
{
    const auto name = fileName(path);
    const auto dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

std::string upperAscii(std::string_view text)
{
    std::string out(text);
    std::ranges::transform(out, out.begin(),
        [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; });
    return out;
}

std::string absolutePath(const std::string &path)
{
    const bool drive = path.size() > 1 && path[1] == ':';
    if (path.empty() || drive || path.front() == '/' || path.front() == '\\')
        return path;
    std::error_code error;
    const auto absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.string();
}

std::string_view withoutTrailingSeparator(std::string_view folder)
{
    if (folder.size() > 1 && separatorsIn(folder).find(folder.back()) != std::string_view::npos)
        folder.remove_suffix(1);
    return folder;
}

} // namespace kevra
