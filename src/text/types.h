// SPDX-License-Identifier: GPL-3.0-or-later
// The types that every pass, rule and window shares: positions, ranges, colours and coloured runs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kevra {

/// A position in a document, in bytes from 0. In memory a document is UTF-8 with CRLF line breaks.
using Offset = std::ptrdiff_t;

/// The half-open range [start, end) of a document.
struct TextRange {
    Offset start = 0;
    Offset end = 0;

    [[nodiscard]] constexpr Offset length() const { return end - start; }
    [[nodiscard]] constexpr bool empty() const { return end <= start; }
    friend constexpr bool operator==(TextRange, TextRange) = default;
};

/// A colour as the settings store keeps it: 0xBBGGRR, red in the low byte.
struct Colour {
    std::uint32_t value = 0;

    [[nodiscard]] constexpr unsigned red() const { return value & 0xFF; }
    [[nodiscard]] constexpr unsigned green() const { return value >> 8 & 0xFF; }
    [[nodiscard]] constexpr unsigned blue() const { return value >> 16 & 0xFF; }
    friend constexpr bool operator==(Colour, Colour) = default;
};

namespace colours {
inline constexpr Colour black{0};
inline constexpr Colour defaultCode{0xFF0000};
inline constexpr Colour placeholder{0x318CF2};
inline constexpr Colour separatorComment{0x9700};
inline constexpr Colour fault{0xFF};
} // namespace colours

/// A range of text in one colour. Where runs overlap, the later one is visible.
struct ColourRun {
    TextRange range;
    Colour colour;

    friend constexpr bool operator==(const ColourRun &, const ColourRun &) = default;
};

using ColourRuns = std::vector<ColourRun>;

} // namespace kevra
