// SPDX-License-Identifier: GPL-3.0-or-later
// Compares an edited text with its file: which lines are unchanged, and which line end each line gets.
#pragma once

#include "encoding/line_ends.h"
#include "encoding/transcoding.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

class EditedLines {
public:
    /// `before` is the file's text with its own line ends. With LineEnds::Mixed every line keeps its end; a
    /// new line gets the end of the line it replaces, else the most common one. Any other `ends` applies to
    /// all lines. Both texts must outlive this object.
    EditedLines(std::string_view text, std::string_view before, LineEnds ends);

    [[nodiscard]] std::string text() const;
    /// The text in the encoding of the file. Unedited lines keep their bytes from `original`, the file
    /// without its byte-order mark. Nothing if the encoding cannot represent the text.
    [[nodiscard]] std::optional<std::string> bytes(
        std::string_view original, Encoding encoding, RawBytes rawBytes) const;

private:
    struct EditedLine {
        std::string_view content;
        std::string_view end;
        std::optional<std::size_t> kept; ///< the line of the file that it is unchanged from
    };

    std::vector<EditedLine> m_lines;
    std::size_t m_linesBefore = 0;
};

} // namespace kevra
