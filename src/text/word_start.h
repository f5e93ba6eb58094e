// SPDX-License-Identifier: GPL-3.0-or-later
// Comparing the bytes at a place of a text with the start of a word, whatever the case.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kevra {

/// Eight bytes as they lie in memory. Setting the bit that makes a letter small turns nothing else into a
/// letter; among other characters it makes a few alike.
using EightBytes = std::uint64_t;
inline constexpr EightBytes smallLetters = 0x2020202020202020u;

/// The bytes at a place inside the text, in small letters. Zeros stand behind its end.
[[nodiscard]] inline EightBytes bytesAt(std::string_view text, std::size_t at)
{
    EightBytes bytes = 0;
    if (at + sizeof bytes <= text.size())
        std::memcpy(&bytes, text.data() + at, sizeof bytes);
    else
        std::memcpy(&bytes, text.data() + at, text.size() - at);
    return bytes | smallLetters;
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
        m_bytes = (std::bit_cast<EightBytes>(bytes) | smallLetters) & m_mask;
    }

    /// False only where the word does not start; true is certain for a word of up to eight letters.
    [[nodiscard]] constexpr bool mayBeAt(EightBytes smallBytes) const
    {
        return (smallBytes & m_mask) == m_bytes;
    }

private:
    EightBytes m_bytes = 0;
    EightBytes m_mask = 0;
};

} // namespace kevra
