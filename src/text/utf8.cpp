// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace kevra {

Utf8Character firstCharacter(std::string_view bytes)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = byte(0);
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    if (length == 0 || bytes.size() < length)
        return {};
    char32_t value = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return {};
        value = value << 6 | (byte(i) & 0x3F);
    }
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    if (value < smallest[length] || value > 0x10FFFF || (value >= 0xD800 && value < 0xE000))
        return {};
    return {value, length};
}

void appendUtf8(std::string &out, char32_t character)
{
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        out += static_cast<char>(character);
    } else if (character < 0x800) {
        out += static_cast<char>(0xC0 | character >> 6);
        tail(0);
    } else if (character < 0x10000) {
        out += static_cast<char>(0xE0 | character >> 12);
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | character >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

std::string_view wholeCharacters(std::string_view text, std::size_t size)
{
    auto end = std::min(text.size(), size);
    while (end > 0 && end < text.size() && continuesCharacter(text[end]))
        --end;
    return text.substr(0, end);
}

std::size_t asciiRun(std::string_view bytes)
{
    std::size_t i = 0;
    for (std::uint64_t word = 0; i + sizeof word <= bytes.size(); i += sizeof word) {
        std::memcpy(&word, bytes.data() + i, sizeof word);
        if (word & 0x8080808080808080U)
            break;
    }
    while (i < bytes.size() && static_cast<unsigned char>(bytes[i]) < 0x80)
        ++i;
    return i;
}

std::size_t utf8Run(std::string_view bytes)
{
    std::size_t at = 0;
    for (;;) {
        at += asciiRun(bytes.substr(at));
        if (at == bytes.size())
            return at;
        const auto length = firstCharacter(bytes.substr(at)).length;
        if (length == 0)
            return at;
        at += length;
    }
}

} // namespace kevra
