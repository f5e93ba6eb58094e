// SPDX-License-Identifier: GPL-3.0-or-later
// A fast test, ignoring case, for whether a word may start at a position of a text.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kevra {

/// Eight bytes in memory order. Setting the lower-case bit turns no other character into a letter, but makes
/// a few other characters equal.
using EightBytes = std::uint64_t;
inline constexpr EightBytes lowerCaseBits = 0x2020202020202020u;

/// The bytes from `at`, inside the text, with the lower-case bit set. The text is padded with zeros.
[[nodiscard]] inline EightBytes bytesAt(std::string_view text, std::size_t at)
{
    EightBytes bytes = 0;
    if (at + sizeof bytes <= text.size())
        std::memcpy(&bytes, text.data() + at, sizeof bytes);
    else
        std::memcpy(&bytes, text.data() + at, text.size() - at);
    return bytes | lowerCaseBits;
}

/// The first eight bytes of a word, or all of a shorter one.
class WordStart {
public:
    constexpr WordStart() = default;
    constexpr explicit WordStart(std::string_view word)
    {
        std::array<unsigned char, sizeof(EightBytes)> bytes{};
        std::array<unsigned char, sizeof(EightBytes)> mask{};
        const auto length = std::min(word.size(), bytes.size());
        std::copy_n(word.begin(), length, bytes.begin());
        std::fill_n(mask.begin(), length, static_cast<unsigned char>(0xFF));
        m_mask = std::bit_cast<EightBytes>(mask);
        m_bytes = (std::bit_cast<EightBytes>(bytes) | lowerCaseBits) & m_mask;
    }

    /// False if the word does not start there. True is certain for words of up to eight letters.
    [[nodiscard]] constexpr bool mayBeAt(EightBytes loweredBytes) const
    {
        return (loweredBytes & m_mask) == m_bytes;
    }

private:
    EightBytes m_bytes = 0;
    EightBytes m_mask = 0;
};

} // namespace kevra
