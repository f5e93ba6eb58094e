// SPDX-License-Identifier: GPL-3.0-or-later
// An edited text against the file it was read from: which lines are still the file's, and with which ends.
#pragma once

#include "encoding/charset.h"
#include "encoding/line_ends.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

class EditedLines {
public:
    /// `before` is the file's text with its own line ends. With Mixed every line keeps its end, and a new one
    /// gets the end of the line whose place it took, else the one most lines have; any other `ends` are given
    /// to all lines. Both texts have to outlive this.
    EditedLines(std::string_view text, std::string_view before, LineEnds ends);

    [[nodiscard]] std::string text() const;
    /// In the encoding of the file, whose bytes without mark are `original`: lines that were not edited keep
    /// theirs. Nothing when the encoding cannot hold the text.
    [[nodiscard]] std::optional<std::string> bytes(
        std::string_view original, Encoding encoding, RawBytes rawBytes) const;

private:
    struct EditedLine {
        std::string_view content;
        std::string_view end;
        std::optional<std::size_t> kept; ///< the line of the file that it still is
    };

    std::vector<EditedLine> m_lines;
    std::size_t m_linesBefore = 0;
};

} // namespace kevra
