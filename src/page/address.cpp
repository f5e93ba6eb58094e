// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/address.h"

#include "script/markup.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

namespace kevra::page {
namespace {

constexpr auto npos = std::string_view::npos;

[[nodiscard]] bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// "https" of "https://..."; a drive's letter is taken for one too.
[[nodiscard]] std::string_view schemeOf(std::string_view address)
{
    const auto isPart
        = [](char c) { return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.'; };
    const auto colon = address.find(':');
    if (colon == npos || colon == 0 || !isLetter(address.front())
        || !std::ranges::all_of(address.substr(0, colon), isPart))
        return {};
    return address.substr(0, colon);
}

/// What a template or a snippet leaves to be filled in.
[[nodiscard]] bool hasPlaceholder(std::string_view address)
{
    return address.find_first_of("<>{}|\"") != npos || address.find("%%") != npos;
}

[[nodiscard]] std::string asBrowsersRead(std::string_view address)
{
    std::string read(script::trimmed(address));
    std::erase_if(read, [](char c) { return c == '\t' || c == '\r' || c == '\n'; });
    return read;
}

} // namespace

std::string percentDecoded(std::string_view text)
{
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        const auto *first = text.data() + i + 1;
        if (text[i] == '%' && i + 2 < text.size()
            && std::from_chars(first, first + 2, byte, 16).ptr == first + 2) {
            decoded += static_cast<char>(byte);
            i += 2;
        } else {
            decoded += text[i];
        }
    }
    return decoded;
}

Addresses::Addresses(PageFolders folders, std::optional<std::string_view> base)
    : m_folders(std::move(folders))
{
    if (!base)
        return;
    m_hasBase = true;
    const auto path = base->empty() ? std::nullopt : pathOf(asBrowsersRead(*base));
    if (!path)
        m_folders = {};
    else // its last part is a file, unless it ends with a separator
        m_folders.folder = path->substr(0, path->rfind('/'));
}

std::optional<std::string> Addresses::pathOf(std::string_view address) const
{
    auto path = address.substr(0, address.find_first_of("?#"));
    std::string decoded;
    if (const auto scheme = schemeOf(path); !scheme.empty()) {
        if (!script::sameWord(scheme, "file") || !path.substr(scheme.size()).starts_with(":///"))
            return std::nullopt;
        decoded = percentDecoded(path.substr(scheme.size() + 3));
    } else {
        decoded = percentDecoded(path);
        std::ranges::replace(decoded, '\\', '/');
        if (decoded.starts_with("//"))
            return std::nullopt;
        const auto &root = decoded.starts_with('/') ? m_folders.site : m_folders.folder;
        if (root.empty())
            return std::nullopt;
        decoded = root + '/' + decoded;
    }
    if (decoded.find('\0') != npos)
        return std::nullopt;
    return std::filesystem::path(decoded).lexically_normal().string();
}

std::optional<LocalTarget> Addresses::local(std::string_view written) const
{
    const auto address = asBrowsersRead(written);
    if (hasPlaceholder(address))
        return std::nullopt;
    const auto hash = address.find('#');
    LocalTarget target;
    if (hash != npos)
        target.fragment = address.substr(hash + 1);
    if (address.empty() || address.front() == '#' || address.front() == '?')
        return m_hasBase ? std::nullopt : std::optional(target);
    const auto path = pathOf(address);
    if (!path)
        return std::nullopt;
    target.path = *path;
    return target;
}

} // namespace kevra::page
