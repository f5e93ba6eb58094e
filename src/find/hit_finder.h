// SPDX-License-Identifier: GPL-3.0-or-later
// Where the text of a request, or its regular expression, is in a text. Always in time proportional to the
// text, whatever the expression.
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

    /// What is wrong with the expression or its replacement; empty when nothing is. A faulty one has no hits.
    [[nodiscard]] const std::string &fault() const { return m_fault; }
    /// The first hit that starts at `from` or behind it. A hit of an expression is never empty.
    [[nodiscard]] std::optional<TextRange> first(std::string_view text, Offset from) const;
    /// The last hit that starts before `before`.
    [[nodiscard]] std::optional<TextRange> last(std::string_view text, Offset before) const;
    /// Hits that do not overlap, from the start.
    [[nodiscard]] std::vector<TextRange> all(std::string_view text) const;
    /// What takes the place of a part of the text; groups count where that part is a hit of the expression.
    [[nodiscard]] std::string replacementOf(std::string_view text, TextRange part) const;
    [[nodiscard]] std::variant<Replacement, Endless> replacedAll(std::string_view text) const;

private:
    class Expression;

    FindRequest m_request;
    Finder m_finder;
    std::unique_ptr<Expression> m_expression; ///< null where the text is looked for as it stands
    std::string m_fault;
};

} // namespace kevra
