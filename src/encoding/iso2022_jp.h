// SPDX-License-Identifier: GPL-3.0-or-later
// ISO-2022-JP: the Japanese sets of EUC-JP in seven bits, with escape sequences between them. The library's
// own form lacks half of what browsers read.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

class Converter;

/// Which of its sets the bytes are in.
enum class Shift { Ascii, Roman, Katakana, TwoBytes };

class Iso2022JpDecoder {
public:
    Iso2022JpDecoder();
    ~Iso2022JpDecoder();

    /// As Converter::convert(), but that the next call goes on in the set this one ended in.
    [[nodiscard]] std::size_t convert(std::string_view in, std::string &out);

private:
    /// Appends the character at the start of `in`; its bytes, or 0.
    std::size_t appendCharacter(std::string_view in, std::string &out);

    std::unique_ptr<Converter> m_library;
    Shift m_shift = Shift::Ascii;
};

/// Starts and ends in ASCII. Nothing when a character is not in the set.
[[nodiscard]] std::optional<std::string> toIso2022Jp(std::string_view text);

/// The set in use after `bytes`, where `before` was in use at their start.
[[nodiscard]] Shift shiftAfter(std::string_view bytes, Shift before);
[[nodiscard]] std::string_view escapeOf(Shift shift);

} // namespace kevra
