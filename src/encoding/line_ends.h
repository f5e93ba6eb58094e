// SPDX-License-Identifier: GPL-3.0-or-later
// Converts the line ends of a file to the CRLF of a text in memory, and back.
#pragma once

#include "encoding/text_format.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra {

struct Line {
    std::string_view content;
    std::string_view end; ///< CRLF, LF, CR, or empty for the last line

    friend bool operator==(const Line &, const Line &) = default;
};

/// One line more than there are line ends; the last one may be empty.
[[nodiscard]] std::vector<Line> splitLines(std::string_view text);
[[nodiscard]] LineEnds lineEndsOf(std::string_view text);
/// `text`, whose line ends are `ends`, with CRLF everywhere.
[[nodiscard]] std::string toCrLf(std::string_view text, LineEnds ends);
/// The same, whatever its line ends are.
[[nodiscard]] std::string toCrLf(std::string_view text);
/// `text` with every line end converted to `ends`; to CRLF for None and Mixed.
[[nodiscard]] std::string fromCrLf(std::string_view text, LineEnds ends);
[[nodiscard]] std::string_view endText(LineEnds ends);
/// The most common line end; CRLF if there is none.
[[nodiscard]] std::string_view mostCommonEnd(const std::vector<Line> &lines);

} // namespace kevra
