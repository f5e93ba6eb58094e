// SPDX-License-Identifier: GPL-3.0-or-later
// Which way a page's allowed requests go. Every document has an origin of its own, so that its scripts see
// nothing of another file; a host name that nobody can guess says what an address may be used for. See
// docs/decisions/preview-barrier.md.
#pragma once

#include "preview/request_rules.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace kevra {

/// The schemes that this program answers itself.
namespace scheme {
inline constexpr std::string_view page = "kevra-page"; ///< documents, and the first step to their parts
inline constexpr std::string_view part = "kevra-part"; ///< what engines take across origins only when allowed
inline constexpr std::string_view web = "kevra-web"; ///< what this program fetches over https
} // namespace scheme

struct PageAddress {
    std::string scheme; ///< lower case
    std::string host; ///< with its port
    std::string path; ///< bytes, nothing encoded
    std::string rest; ///< path, query and fragment as written in an address

    friend bool operator==(const PageAddress &, const PageAddress &) = default;
};

/// What the program answers with when the engine asks for an address of one of its schemes.
struct PageAnswer {
    enum class Kind { Refused, File, Elsewhere, Web };
    Kind kind = Kind::Refused;
    PageAddress address; ///< of the file, where to go instead, or what to fetch
};

class PageRoutes {
public:
    /// The same 32 lower-case hexadecimal digits for the same text, which nobody else can compute.
    using Sign = std::function<std::string(std::string_view)>;

    explicit PageRoutes(Sign sign);

    /// The address of a file as the engine is asked for the document in it.
    [[nodiscard]] PageAddress document(const PageAddress &file) const;
    /// The address that an allowed request is redirected to; `asked` itself when it needs no redirection.
    /// Nothing for an address that was made for another page: redirected a second time, it would end the
    /// engine.
    [[nodiscard]] std::optional<PageAddress> next(Resource kind, const PageAddress &asked);
    [[nodiscard]] PageAnswer answer(const PageAddress &asked);

private:
    [[nodiscard]] std::string signedFor(const char *use, const std::string &text) const;
    [[nodiscard]] PageAddress webAddress(const PageAddress &https) const;
    [[nodiscard]] PageAddress pass(PageAddress file);

    Sign m_sign;
    std::string m_mark; ///< the start of every signature
    std::size_t m_passes = 0;
    std::unordered_set<std::string> m_open; ///< passes given out and not used
};

/// As the page's author knows it: a file, https, or what it is.
[[nodiscard]] PageAddress plainAddress(PageAddress address);

} // namespace kevra
