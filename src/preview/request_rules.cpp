// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/request_rules.h"

#include "text/paths.h"

#include <algorithm>
#include <array>

namespace kevra {
namespace {

constexpr std::array indexPages{"/index.html", "/index.htm", "/default.htm", "/index.php", "/default.asp"};

bool isInside(std::string_view path, std::string_view folder)
{
    return !folder.empty() && path.size() > folder.size() && path.starts_with(folder)
        && path[folder.size()] == '/';
}

bool hasIndexPage(const std::string &folder, const FileReader &files)
{
    return std::ranges::any_of(indexPages, [&](const char *page) { return files.fileExists(folder + page); });
}

/// Data that the page carries in itself.
bool isOwnData(std::string_view scheme)
{
    return scheme == "data" || scheme == "blob" || scheme == "about";
}

} // namespace

bool allowsRequest(const PageRequest &request, const PageScope &scope, Remote remote)
{
    if (request.sends)
        return false;
    if (request.scheme == "file")
        return request.kind != Resource::Other
            && (isInside(request.path, scope.folder) || isInside(request.path, scope.site));
    if (request.scheme == "https")
        return request.kind != Resource::Other && remote == Remote::On;
    return request.kind != Resource::MainFrame && isOwnData(request.scheme);
}

PageScope scopeOf(const std::string &folder, const FileReader &files, std::string_view home)
{
    PageScope scope{folder, folder};
    for (auto above = std::string(parentFolder(folder)); hasIndexPage(above, files);
         above = parentFolder(above)) {
        const bool holdsHome = above == home || isInside(home, above) || above.size() <= 1;
        if (holdsHome)
            break;
        scope.site = above;
    }
    return scope;
}

} // namespace kevra
