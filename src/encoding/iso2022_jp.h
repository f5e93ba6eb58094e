// SPDX-License-Identifier: GPL-3.0-or-later
// ISO-2022-JP: the Japanese sets of EUC-JP in seven bits, switched by escape sequences. The library's own
// ISO-2022-JP lacks half of what browsers read.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

class Converter;

/// The set that is in use.
enum class Shift { Ascii, Roman, Katakana, TwoBytes };

class Iso2022JpDecoder {
public:
    Iso2022JpDecoder();
    ~Iso2022JpDecoder();

    /// Like Converter::convert(), but each call continues in the set in which the last one ended.
    [[nodiscard]] std::size_t convert(std::string_view in, std::string &out);

private:
    /// Appends the character at the start of `in`; returns its length in bytes, or 0 if it is invalid.
    std::size_t appendCharacter(std::string_view in, std::string &out);

    std::unique_ptr<Converter> m_library;
    Shift m_shift = Shift::Ascii;
};

/// Starts and ends in ASCII. Nothing if a character is not in the set.
[[nodiscard]] std::optional<std::string> toIso2022Jp(std::string_view text);

/// The set in use after `bytes`, where `before` was in use at their start.
[[nodiscard]] Shift shiftAfter(std::string_view bytes, Shift before);
[[nodiscard]] std::string_view escapeOf(Shift shift);

} // namespace kevra
