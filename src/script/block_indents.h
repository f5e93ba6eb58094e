// SPDX-License-Identifier: GPL-3.0-or-later
// Uses indentation to find which of several nested blocks lacks its end, or which end lacks its block:
// nesting alone does not show that. Private to the parser.
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

/// The blanks before `offset` if nothing else is before it on its line.
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

    /// Call when a block was closed by its own end. Kept only if head and end are indented differently.
    void note(std::string_view text, BlockKind kind, TextRange head, TextRange end);
    /// Call at the end of a procedure with the count() from its start: drops what was noted since.
    [[nodiscard]] std::size_t count() const { return m_closed.size(); }
    void forget(std::size_t count) { m_closed.resize(count); }

    /// For a block that is unexpectedly still open: the block inside it that took an outer block's end.
    [[nodiscard]] const Closed *withoutEnd(std::string_view text, BlockKind kind, Offset head) const;
    /// For an end that closes nothing: the earlier end that closed the block with this one's indentation.
    [[nodiscard]] const Closed *withSurplusEnd(std::string_view text, BlockKind kind, Offset end) const;

private:
    std::vector<Closed> m_closed; ///< in the order of their ends
};

} // namespace kevra::script
