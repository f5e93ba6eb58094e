// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/single_byte.h"

#include "encoding/converter.h"
#include "encoding/library_gaps.h"
#include "text/utf8.h"

#include <algorithm>
#include <mutex>

namespace kevra {
namespace {

constexpr std::size_t numberOfSets = static_cast<std::size_t>(Encoding::UserDefined) + 1;
constexpr unsigned firstHighByte = 0x80;
constexpr unsigned afterControls = 0xA0;

constexpr HighHalf windows1252()
{
    HighHalf half{};
    for (std::size_t i = 0; i < half.size(); ++i)
        half[i] = static_cast<char16_t>(firstHighByte + i);
    // The five bytes without a character map to the control characters of the same number: no byte is lost.
    constexpr std::array<char16_t, 32> low{0x20AC, 0x81, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D, 0x017D, 0x8F, 0x90, 0x2018, 0x2019, 0x201C, 0x201D,
        0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D, 0x017E, 0x0178};
    std::ranges::copy(low, half.begin());
    return half;
}

constexpr HighHalf userDefined()
{
    HighHalf half{};
    for (std::size_t i = 0; i < half.size(); ++i)
        half[i] = static_cast<char16_t>(0xF780 + i);
    return half;
}

char16_t characterOf(unsigned byte, Encoding encoding, Converter &library)
{
    std::string text;
    if (library.convert(std::string(1, static_cast<char>(byte)), text) == 1) {
        text = withStandardCharacters(std::move(text), encoding);
        return static_cast<char16_t>(firstCharacter(text).value);
    }
    const char single = static_cast<char>(byte);
    if (const auto *known = unknownCharacterAt(encoding, {&single, 1}))
        return static_cast<char16_t>(known->character);
    return byte < afterControls ? static_cast<char16_t>(byte) : u'\0';
}

HighHalf fromLibrary(Encoding encoding)
{
    HighHalf half{};
    const auto library = Converter::between(std::string(characterSet(encoding).libraryName), "UTF-8");
    for (unsigned i = 0; library && i < half.size(); ++i)
        half[i] = characterOf(firstHighByte + i, encoding, *library);
    return half;
}

std::optional<char> byteFor(char32_t c, const HighHalf &half)
{
    if (c >= firstHighByte && c < firstHighByte + half.size() && half[c - firstHighByte] == c)
        return static_cast<char>(c);
    const auto it
        = c == 0 ? half.end() : std::ranges::find(half, c, [](char16_t unit) { return char32_t{unit}; });
    if (it == half.end())
        return std::nullopt;
    return static_cast<char>(firstHighByte + static_cast<unsigned>(it - half.begin()));
}

} // namespace

const HighHalf &highHalf(Encoding encoding)
{
    static constexpr HighHalf western = windows1252();
    if (encoding == Encoding::Windows1252)
        return western;
    static std::array<HighHalf, numberOfSets> halves;
    static std::array<std::once_flag, numberOfSets> initialised;
    const auto index = static_cast<std::size_t>(encoding);
    std::call_once(initialised[index],
        [&] { halves[index] = encoding == Encoding::UserDefined ? userDefined() : fromLibrary(encoding); });
    return halves[index];
}

std::size_t appendSingleBytes(std::string_view bytes, const HighHalf &half, std::string &out)
{
    out.reserve(out.size() + bytes.size() + bytes.size() / 8);
    std::size_t at = 0;
    while (at < bytes.size()) {
        const auto run = asciiRun(bytes.substr(at));
        out.append(bytes.substr(at, run));
        at += run;
        for (; at < bytes.size() && static_cast<unsigned char>(bytes[at]) >= firstHighByte; ++at) {
            const auto character = half[static_cast<unsigned char>(bytes[at]) - firstHighByte];
            if (character == 0)
                return at;
            appendUtf8(out, character);
        }
    }
    return at;
}

std::optional<std::string> toSingleBytes(std::string_view text, const HighHalf &half)
{
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const auto run = asciiRun(text);
        out.append(text.substr(0, run));
        text.remove_prefix(run);
        while (!text.empty() && static_cast<unsigned char>(text[0]) >= firstHighByte) {
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

} // namespace kevra
