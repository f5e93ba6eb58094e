// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/uri.h"

#include "text/system_path.h"

#include <algorithm>

namespace kevra::lsp {
namespace {

constexpr std::string_view scheme = "file://";

[[nodiscard]] int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

[[nodiscard]] std::string unescaped(std::string_view text)
{
    std::string out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool escaped = text[at] == '%' && at + 2 < text.size() && hexDigit(text[at + 1]) >= 0
            && hexDigit(text[at + 2]) >= 0;
        out += escaped ? static_cast<char>(hexDigit(text[at + 1]) * 16 + hexDigit(text[at + 2])) : text[at];
        at += escaped ? 2 : 0;
    }
    return out;
}

[[nodiscard]] bool startsWithDrive(std::string_view path)
{
    return path.size() > 2 && path[0] == '/' && path[2] == ':';
}

} // namespace

std::optional<std::string> pathOfUri(std::string_view uri)
{
    if (!uri.starts_with(scheme))
        return std::nullopt;
    // A host name comes before the path.
    const auto path = uri.find('/', scheme.size());
    if (path == uri.npos)
        return std::nullopt;
    auto out = unescaped(uri.substr(path));
    return startsWithDrive(out) ? out.substr(1) : out;
}

std::string uriOfPath(std::string_view path)
{
    constexpr std::string_view hex = "0123456789ABCDEF";
    constexpr std::string_view allowed = "-._~/";
    std::string out(scheme);
    if (!path.starts_with('/'))
        out += '/';
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        if (plain || allowed.find(c) != allowed.npos)
            out += c;
        else
            ((out += '%') += hex[byte >> 4]) += hex[byte & 15];
    }
    return out;
}

std::string pathBeside(std::string_view path, std::string_view named)
{
    std::string name(named);
    std::ranges::replace(name, '\\', '/');
    return (systemPath(path).parent_path() / systemPath(name)).lexically_normal().generic_string();
}

} // namespace kevra::lsp
