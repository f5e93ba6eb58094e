// SPDX-License-Identifier: GPL-3.0-or-later
// Which of several nested blocks lacks its end, or which end its block: nesting alone cannot tell,
// indentation often can. Private to the parser.
#pragma once

#include "text/types.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kevra::script {

enum class BlockKind : std::uint8_t {
    If,
    InlineIf,
    Select,
    For,
    Do,
    While,
    With,
    Sub,
    Function,
    Property,
    Class
};

/// The blanks before `offset`, if there is nothing else before it on its line.
[[nodiscard]] std::optional<std::string_view> indentAt(std::string_view text, Offset offset);

class BlockIndents {
public:
    struct Closed {
        BlockKind kind{};
        TextRange head;
        TextRange end;
        std::string_view headIndent;
        std::string_view endIndent;
    };

    /// A block was closed by its own word. Kept only where head and end are indented differently.
    void note(std::string_view text, BlockKind kind, TextRange head, TextRange end);
    /// What is noted is forgotten when the procedure is left: pass the count from its start.
    [[nodiscard]] std::size_t count() const { return m_closed.size(); }
    void forget(std::size_t count) { m_closed.resize(count); }

    /// A block is still open though it ought not to be. The one in it that took an outer block's end for its
    /// own.
    [[nodiscard]] const Closed *withoutEnd(std::string_view text, BlockKind kind, Offset head) const;
    /// An end closes nothing. The end before it that took the block this one is indented like.
    [[nodiscard]] const Closed *withSurplusEnd(std::string_view text, BlockKind kind, Offset end) const;

private:
    std::vector<Closed> m_closed; ///< in the order of their ends
};

} // namespace kevra::script
