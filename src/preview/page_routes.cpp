// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/page_routes.h"

#include "text/paths.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kevra {
namespace {

constexpr std::size_t signLength = 32;
constexpr std::size_t markLength = 8; ///< of these tell the pages from one another

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

bool isSignature(std::string_view text)
{
    const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
    return text.size() == signLength && std::ranges::all_of(text, isDigit);
}

/// What stands alone or, in an address of the web, before the first point, when it is a signature.
std::string_view signatureOf(const PageAddress &address)
{
    const std::string_view host(address.host);
    const auto label = address.scheme == scheme::web ? host.substr(0, host.find('.')) : host;
    const bool own
        = address.scheme == scheme::page || address.scheme == scheme::part || label.size() < host.size();
    return own && isSignature(label) ? label : std::string_view{};
}

} // namespace

PageAddress plainAddress(PageAddress address)
{
    if (address.scheme == scheme::page || address.scheme == scheme::part)
        return fileAddress(address);
    if (address.scheme != scheme::web)
        return address;
    if (const auto signature = signatureOf(address); !signature.empty())
        address.host.erase(0, signature.size() + 1);
    address.scheme = "https";
    return address;
}

PageRoutes::PageRoutes(Sign sign)
    : m_sign(std::move(sign))
    , m_mark(m_sign("").substr(0, markLength))
{
}

std::string PageRoutes::signedFor(const char *use, const std::string &text) const
{
    return m_mark + m_sign(use + text).substr(markLength);
}

PageAddress PageRoutes::document(const PageAddress &file) const
{
    return {std::string(scheme::page), signedFor(documentUse, file.path), file.path, file.rest};
}

PageAddress PageRoutes::webAddress(const PageAddress &https) const
{
    const auto signature = signedFor(webUse, https.host + withoutFragment(https.rest));
    return {std::string(scheme::web), signature + '.' + https.host, https.path, https.rest};
}

std::optional<PageAddress> PageRoutes::next(Resource kind, const PageAddress &asked)
{
    if (const auto signature = signatureOf(asked); !signature.empty() && !signature.starts_with(m_mark))
        return std::nullopt;
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
        return PageAddress{
            std::string(scheme::part), signedFor(sharedPartUse, plain.path), plain.path, plain.rest};
    return PageAddress{
        std::string(scheme::page), signedFor(plainPartUse, plain.path), plain.path, plain.rest};
}

PageAddress PageRoutes::pass(PageAddress file)
{
    auto number = signedFor(passUse, std::to_string(++m_passes));
    file.rest = file.rest.substr(0, file.rest.find_first_of("?#")) + '?' + number;
    m_open.insert(std::move(number));
    return file;
}

PageAnswer PageRoutes::answer(const PageAddress &asked)
{
    const auto plain = plainAddress(asked);
    const auto isFor = [&](const char *use) { return asked.host == signedFor(use, asked.path); };
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
