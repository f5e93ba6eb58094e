// SPDX-License-Identifier: GPL-3.0-or-later
// Finds a request's text or regular expression in a text. Any expression takes time proportional to the text.
#pragma once

#include "find/find_request.h"
#include "find/replacement.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace kevra {

class HitFinder {
public:
    explicit HitFinder(const FindRequest &request);
    ~HitFinder();
    HitFinder(const HitFinder &) = delete;
    HitFinder &operator=(const HitFinder &) = delete;

    /// The error in the expression or its replacement; empty if there is none. An invalid expression has no
    /// hits.
    [[nodiscard]] const std::string &fault() const { return m_fault; }
    /// The first hit that starts at or after `from`. Empty matches of an expression are skipped.
    [[nodiscard]] std::optional<TextRange> first(std::string_view text, Offset from) const;
    /// The last hit that starts before `before`.
    [[nodiscard]] std::optional<TextRange> last(std::string_view text, Offset before) const;
    /// All hits from the start, without overlaps.
    [[nodiscard]] std::vector<TextRange> all(std::string_view text) const;
    /// The replacement for a part of the text; groups are expanded if that part is a hit of the expression.
    [[nodiscard]] std::string replacementOf(std::string_view text, TextRange part) const;
    [[nodiscard]] std::variant<Replacement, Endless> replacedAll(std::string_view text) const;

private:
    class Expression;

    FindRequest m_request;
    Finder m_finder;
    std::unique_ptr<Expression> m_expression; ///< null for plain text
    std::string m_fault;
};

} // namespace kevra
