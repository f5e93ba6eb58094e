// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/page_routes.h"

#include "text/paths.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kevra {
namespace {

constexpr std::size_t signLength = 32;

// A text is signed together with its use, so that an address for one use is worth nothing for another.
constexpr auto documentUse = "document ";
constexpr auto plainPartUse = "part ";
constexpr auto sharedPartUse = "shared ";
constexpr auto webUse = "web ";
constexpr auto passUse = "pass ";

/// Engines take fonts and modules from another origin only with that origin's consent, which makes their
/// bytes readable. Of scripts that is given to those that say what they are: any file can be asked for as a
/// script.
bool isShared(Resource kind, std::string_view path)
{
    constexpr std::array scripts{"JS", "MJS"};
    const auto type = upperAscii(extension(path));
    return kind == Resource::Font || (kind == Resource::Script && std::ranges::count(scripts, type) > 0);
}

bool isDocument(Resource kind)
{
    return kind == Resource::MainFrame || kind == Resource::SubFrame;
}

PageAddress fileAddress(const PageAddress &of)
{
    return {"file", {}, of.path, of.rest};
}

std::string_view queryOf(std::string_view rest)
{
    const auto mark = rest.find('?');
    return mark == rest.npos ? std::string_view{} : rest.substr(mark + 1, rest.find('#', mark) - mark - 1);
}

std::string withoutFragment(std::string_view rest)
{
    return std::string(rest.substr(0, rest.find('#')));
}

/// What stands before the first point, when it is a signature.
std::string_view signatureOf(std::string_view host)
{
    const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
    const auto label = host.substr(0, host.find('.'));
    const bool signature = label.size() == signLength && label.size() < host.size();
    return signature && std::ranges::all_of(label, isDigit) ? label : std::string_view{};
}

} // namespace

PageAddress plainAddress(PageAddress address)
{
    if (address.scheme == scheme::page || address.scheme == scheme::part)
        return fileAddress(address);
    if (address.scheme != scheme::web)
        return address;
    address.scheme = "https";
    if (const auto signature = signatureOf(address.host); !signature.empty())
        address.host.erase(0, signature.size() + 1);
    return address;
}

PageRoutes::PageRoutes(Sign sign)
    : m_sign(std::move(sign))
{
}

PageAddress PageRoutes::document(const PageAddress &file) const
{
    return {std::string(scheme::page), m_sign(documentUse + file.path), file.path, file.rest};
}

PageAddress PageRoutes::webAddress(const PageAddress &https) const
{
    const auto signature = m_sign(webUse + https.host + withoutFragment(https.rest));
    return {std::string(scheme::web), signature + '.' + https.host, https.path, https.rest};
}

PageAddress PageRoutes::next(Resource kind, const PageAddress &asked)
{
    // The engine's own way to read a file is open to those who were sent there, once.
    if (asked.scheme == "file" && m_open.erase(std::string(queryOf(asked.rest))) > 0)
        return asked;
    const auto plain = plainAddress(asked);
    if (plain.scheme == "https")
        return webAddress(plain);
    if (plain.scheme != "file")
        return asked;
    if (isDocument(kind))
        return document(plain);
    if (isShared(kind, plain.path))
        return {std::string(scheme::part), m_sign(sharedPartUse + plain.path), plain.path, plain.rest};
    return {std::string(scheme::page), m_sign(plainPartUse + plain.path), plain.path, plain.rest};
}

PageAddress PageRoutes::pass(PageAddress file)
{
    auto number = m_sign(passUse + std::to_string(++m_passes));
    file.rest = file.rest.substr(0, file.rest.find_first_of("?#")) + '?' + number;
    m_open.insert(std::move(number));
    return file;
}

PageAnswer PageRoutes::answer(const PageAddress &asked)
{
    const auto plain = plainAddress(asked);
    const auto isFor = [&](const char *use) { return asked.host == m_sign(use + asked.path); };
    if (asked.scheme == scheme::web && asked.host == webAddress(plain).host)
        return {PageAnswer::Kind::Web, plain};
    if (asked.scheme == scheme::page ? isFor(documentUse)
                                     : asked.scheme == scheme::part && isFor(sharedPartUse))
        return {PageAnswer::Kind::File, plain};
    // Read by the engine itself, which keeps what is in it from the page's scripts.
    if (asked.scheme == scheme::page && isFor(plainPartUse))
        return {PageAnswer::Kind::Elsewhere, pass(plain)};
    return {};
}

} // namespace kevra
