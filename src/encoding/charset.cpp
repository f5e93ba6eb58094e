// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/charset.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace kevra {
namespace {

/// The characters of the bytes 0x80 to 0xFF; 0 marks a byte without one.
using HighHalf = std::array<char16_t, 128>;

constexpr HighHalf latin1 = [] {
    HighHalf half{};
    for (std::size_t i = 32; i < half.size(); ++i)
        half[i] = static_cast<char16_t>(0x80 + i);
    return half;
}();

constexpr HighHalf latin9 = [] {
    HighHalf half = latin1;
    constexpr std::array<std::pair<int, char16_t>, 8> differences{
        {{0xA4, u'\u20AC'}, {0xA6, u'\u0160'}, {0xA8, u'\u0161'}, {0xB4, u'\u017D'}, {0xB8, u'\u017E'},
            {0xBC, u'\u0152'}, {0xBD, u'\u0153'}, {0xBE, u'\u0178'}}};
    for (const auto &[byte, character] : differences)
        half[static_cast<std::size_t>(byte - 0x80)] = character;
    return half;
}();

constexpr HighHalf windows1252 = [] {
    HighHalf half = latin1;
    // The five bytes without a character keep the control character of their number, so that none is lost.
    constexpr std::array<char16_t, 32> low{0x20AC, 0x81, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D, 0x017D, 0x8F, 0x90, 0x2018, 0x2019, 0x201C, 0x201D,
        0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D, 0x017E, 0x0178};
    std::ranges::copy(low, half.begin());
    return half;
}();

const HighHalf &highHalf(Encoding encoding)
{
    return encoding == Encoding::Latin1 ? latin1 : encoding == Encoding::Latin9 ? latin9 : windows1252;
}

/// How many of the first bytes are plain ASCII.
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

void append(std::string &out, char32_t c)
{
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | (c >> shift & 0x3F)); };
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | c >> 6);
        tail(0);
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | c >> 12);
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | c >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

struct Character {
    char32_t value = 0;
    std::size_t length = 0; ///< 0: no well-formed character starts here
};

/// The UTF-8 character at the start of non-empty `bytes`. Overlong forms and surrogates are none.
Character firstCharacter(std::string_view bytes)
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

char16_t unitAt(std::string_view bytes, std::size_t i, Encoding encoding)
{
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    return static_cast<char16_t>(encoding == Encoding::Utf16Le ? first | second << 8 : first << 8 | second);
}

constexpr bool leadsPair(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool endsPair(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

bool isUtf16(std::string_view bytes, Encoding encoding)
{
    if (bytes.size() % 2 != 0)
        return false;
    bool open = false;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto unit = unitAt(bytes, i, encoding);
        if (open != endsPair(unit))
            return false;
        open = leadsPair(unit);
    }
    return !open;
}

std::string utf16ToUtf8(std::string_view bytes, Encoding encoding)
{
    std::string out;
    out.reserve(bytes.size() / 2 + bytes.size() / 8);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        char32_t c = unitAt(bytes, i, encoding);
        if (leadsPair(static_cast<char16_t>(c))) {
            i += 2;
            c = 0x10000 + ((c - 0xD800) << 10) + (unitAt(bytes, i, encoding) - 0xDC00U);
        }
        append(out, c);
    }
    return out;
}

std::optional<std::string> utf8ToUtf16(std::string_view text, Encoding encoding)
{
    std::string out;
    out.reserve(text.size() * 2);
    const auto put = [&](char32_t unit) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        out += encoding == Encoding::Utf16Le ? low : high;
        out += encoding == Encoding::Utf16Le ? high : low;
    };
    while (!text.empty()) {
        const auto [value, length] = firstCharacter(text);
        if (length == 0)
            return std::nullopt;
        if (value >= 0x10000) {
            put(0xD800 + ((value - 0x10000) >> 10));
            put(0xDC00 + ((value - 0x10000) & 0x3FF));
        } else {
            put(value);
        }
        text.remove_prefix(length);
    }
    return out;
}

std::string singleByteToUtf8(std::string_view bytes, const HighHalf &half)
{
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    while (!bytes.empty()) {
        const auto run = asciiRun(bytes);
        out.append(bytes.substr(0, run));
        bytes.remove_prefix(run);
        for (; !bytes.empty() && static_cast<unsigned char>(bytes[0]) >= 0x80; bytes.remove_prefix(1))
            append(out, half[static_cast<unsigned char>(bytes[0]) - 0x80U]);
    }
    return out;
}

std::optional<char> byteFor(char32_t c, const HighHalf &half)
{
    if (c >= 0x80 && c < 0x100 && half[c - 0x80] == c)
        return static_cast<char>(c);
    const auto it = std::ranges::find(half, c, [](char16_t unit) { return static_cast<char32_t>(unit); });
    if (it == half.end())
        return std::nullopt;
    return static_cast<char>(0x80 + (it - half.begin()));
}

std::optional<std::string> utf8ToSingleByte(std::string_view text, const HighHalf &half)
{
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const auto run = asciiRun(text);
        out.append(text.substr(0, run));
        text.remove_prefix(run);
        while (!text.empty() && static_cast<unsigned char>(text[0]) >= 0x80) {
            const auto [value, length] = firstCharacter(text);
            const auto byte = length == 0 ? std::nullopt : byteFor(value, half);
            if (!byte)
                return std::nullopt;
            out += *byte;
            text.remove_prefix(length);
        }
    }
    return out;
}

} // namespace

std::string_view markOf(Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf8:
        return utf8Mark;
    case Encoding::Utf16Le:
        return utf16LeMark;
    case Encoding::Utf16Be:
        return utf16BeMark;
    default:
        return {};
    }
}

bool isAscii(std::string_view bytes)
{
    return asciiRun(bytes) == bytes.size();
}

bool isUtf8(std::string_view bytes)
{
    for (;;) {
        bytes.remove_prefix(asciiRun(bytes));
        if (bytes.empty())
            return true;
        const auto length = firstCharacter(bytes).length;
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
}

bool isValid(std::string_view bytes, Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf8:
        return isUtf8(bytes);
    case Encoding::Utf16Le:
    case Encoding::Utf16Be:
        return isUtf16(bytes, encoding);
    case Encoding::Latin1:
    case Encoding::Latin9:
        return std::ranges::none_of(bytes, [](char c) {
            const auto byte = static_cast<unsigned char>(c);
            return byte >= 0x80 && byte < 0xA0;
        });
    case Encoding::Windows1252:
        break;
    }
    return true;
}

std::string toUtf8(std::string_view bytes, Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf8:
        return std::string(bytes);
    case Encoding::Utf16Le:
    case Encoding::Utf16Be:
        return utf16ToUtf8(bytes, encoding);
    default:
        return singleByteToUtf8(bytes, highHalf(encoding));
    }
}

std::optional<std::string> fromUtf8(std::string_view text, Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf8:
        return std::string(text);
    case Encoding::Utf16Le:
    case Encoding::Utf16Be:
        return utf8ToUtf16(text, encoding);
    default:
        return utf8ToSingleByte(text, highHalf(encoding));
    }
}

} // namespace kevra
