// SPDX-License-Identifier: GPL-3.0-or-later
// The converter over the code pages of Windows. UTF-16 and UTF-32, which are none there, are read and written
// here.
#include "encoding/converter.h"

#include "encoding/character_sets.h"
#include "text/utf8.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <span>

namespace kevra {
namespace {

constexpr UINT gb18030 = 54936;
constexpr std::size_t longestCharacter = 4; ///< bytes, in any of the sets

/// UTF-16 for at most one character.
struct Units {
    std::array<wchar_t, 2> units{};
    int count = 0;
};

Units utf16Of(char32_t c)
{
    if (c < 0x10000)
        return {{static_cast<wchar_t>(c)}, 1};
    c -= 0x10000;
    return {{static_cast<wchar_t>(0xD800 + (c >> 10)), static_cast<wchar_t>(0xDC00 + (c & 0x3FF))}, 2};
}

bool isSurrogate(char32_t c)
{
    return c >= 0xD800 && c < 0xE000;
}

/// The character of UTF-16 units: one, or a pair of surrogates.
std::optional<char32_t> characterOf(std::span<const wchar_t> units)
{
    if (units.size() == 1 && !isSurrogate(units[0]))
        return units[0];
    if (units.size() == 2 && units[0] >= 0xD800 && units[0] < 0xDC00 && units[1] >= 0xDC00
        && units[1] < 0xE000)
        return 0x10000 + (static_cast<char32_t>(units[0] - 0xD800) << 10) + (units[1] - 0xDC00);
    return std::nullopt;
}

/// Converts character by character: `convertFirst` converts the one at the start of what is left and returns
/// its bytes, 0 where it cannot. How many bytes have been converted.
template <typename ConvertFirst>
std::size_t convertEach(std::string_view in, const ConvertFirst &convertFirst)
{
    std::size_t at = 0;
    while (at < in.size()) {
        const std::size_t length = convertFirst(in.substr(at));
        if (length == 0)
            break;
        at += length;
    }
    return at;
}

class CodePageDecoder : public Converter {
public:
    explicit CodePageDecoder(UINT page)
        : m_page(page)
    {
    }

    std::size_t convert(std::string_view in, std::string &out) override
    {
        return convertEach(in, [&](std::string_view rest) { return appendCharacter(rest, out); });
    }

private:
    /// The bytes of the character at the start of `in`; 0 for none.
    [[nodiscard]] std::size_t appendCharacter(std::string_view in, std::string &out) const
    {
        for (std::size_t length = 1; length <= std::min(longestCharacter, in.size()); ++length) {
            std::array<wchar_t, 2> units{};
            const int count = MultiByteToWideChar(m_page, MB_ERR_INVALID_CHARS, in.data(),
                static_cast<int>(length), units.data(), static_cast<int>(units.size()));
            const auto character
                = characterOf(std::span(units).first(static_cast<std::size_t>(std::max(count, 0))));
            if (character) {
                appendUtf8(out, *character);
                return length;
            }
        }
        return 0;
    }

    UINT m_page;
};

class CodePageEncoder : public Converter {
public:
    explicit CodePageEncoder(UINT page)
        : m_page(page)
    {
    }

    std::size_t convert(std::string_view in, std::string &out) override
    {
        return convertEach(in, [&](std::string_view rest) {
            const auto character = firstCharacter(rest);
            return character.length > 0 && append(character.value, out) ? character.length : 0;
        });
    }

private:
    [[nodiscard]] bool append(char32_t character, std::string &out) const
    {
        // GB18030 has every character, and the call takes neither argument for it.
        const bool hasAll = m_page == gb18030;
        const auto [units, count] = utf16Of(character);
        std::array<char, longestCharacter> bytes{};
        BOOL replaced = FALSE;
        const int size = WideCharToMultiByte(m_page, hasAll ? 0 : WC_NO_BEST_FIT_CHARS, units.data(), count,
            bytes.data(), static_cast<int>(bytes.size()), nullptr, hasAll ? nullptr : &replaced);
        if (size <= 0 || replaced)
            return false;
        out.append(bytes.data(), static_cast<std::size_t>(size));
        return true;
    }

    UINT m_page;
};

/// How UTF-16 and UTF-32 lie in a file.
struct WideForm {
    std::size_t unit; ///< bytes
    bool bigEndian;
};

std::uint32_t unitAt(std::string_view bytes, WideForm form)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < form.unit; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[form.bigEndian ? i : form.unit - 1 - i]);
        value = value << 8 | byte;
    }
    return value;
}

void appendUnit(std::uint32_t value, WideForm form, std::string &out)
{
    for (std::size_t i = 0; i < form.unit; ++i)
        out += static_cast<char>(value >> 8 * (form.bigEndian ? form.unit - 1 - i : i));
}

class WideDecoder : public Converter {
public:
    explicit WideDecoder(WideForm form)
        : m_form(form)
    {
    }

    std::size_t convert(std::string_view in, std::string &out) override
    {
        return convertEach(in, [&](std::string_view rest) { return appendCharacter(rest, out); });
    }

private:
    [[nodiscard]] std::size_t appendCharacter(std::string_view in, std::string &out) const
    {
        if (in.size() < m_form.unit)
            return 0;
        const auto first = unitAt(in, m_form);
        if (!isSurrogate(first)) {
            if (first > 0x10FFFF)
                return 0;
            appendUtf8(out, first);
            return m_form.unit;
        }
        if (m_form.unit == 4 || in.size() < 2 * m_form.unit)
            return 0;
        const auto second = unitAt(in.substr(m_form.unit), m_form);
        const std::array units{static_cast<wchar_t>(first), static_cast<wchar_t>(second)};
        const auto character = characterOf(units);
        if (!character)
            return 0;
        appendUtf8(out, *character);
        return 2 * m_form.unit;
    }

    WideForm m_form;
};

class WideEncoder : public Converter {
public:
    explicit WideEncoder(WideForm form)
        : m_form(form)
    {
    }

    std::size_t convert(std::string_view in, std::string &out) override
    {
        return convertEach(in, [&](std::string_view rest) {
            const auto character = firstCharacter(rest);
            if (character.length > 0)
                append(character.value, out);
            return character.length;
        });
    }

private:
    void append(char32_t character, std::string &out) const
    {
        if (m_form.unit == 4)
            return appendUnit(character, m_form, out);
        const auto [units, count] = utf16Of(character);
        for (int i = 0; i < count; ++i)
            appendUnit(units[static_cast<std::size_t>(i)], m_form, out);
    }

    WideForm m_form;
};

const CharacterSet *setNamed(std::string_view libraryName)
{
    const auto sets = characterSets();
    const auto set = std::ranges::find(sets, libraryName, &CharacterSet::libraryName);
    return set == sets.end() ? nullptr : &*set;
}

/// The numbers that the conversion functions take differ from those that name the sets in one place.
UINT pageOf(const CharacterSet &set)
{
    constexpr UINT eucJpForConversion = 20932;
    return set.encoding == Encoding::EucJp ? eucJpForConversion : static_cast<UINT>(set.codePage);
}

} // namespace

std::unique_ptr<Converter> Converter::between(const std::string &from, const std::string &to)
{
    const bool decodes = to == "UTF-8";
    const auto *set = setNamed(decodes ? from : to);
    if (!set)
        return nullptr;
    if (set->form == Form::Wide) {
        const WideForm form{static_cast<std::size_t>(unitSize(set->encoding)),
            set->encoding == Encoding::Utf16Be || set->encoding == Encoding::Utf32Be};
        if (decodes)
            return std::make_unique<WideDecoder>(form);
        return std::make_unique<WideEncoder>(form);
    }
    const auto page = pageOf(*set);
    if (page == 0 || !IsValidCodePage(page))
        return nullptr;
    if (decodes)
        return std::make_unique<CodePageDecoder>(page);
    return std::make_unique<CodePageEncoder>(page);
}

} // namespace kevra
