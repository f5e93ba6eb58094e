// SPDX-License-Identifier: GPL-3.0-or-later
// The converter over tables that are part of the program. UTF-16 and UTF-32 need none.
#include "encoding/converter.h"

#include "encoding/character_sets.h"
#include "encoding/code_runs.h"
#include "text/utf8.h"

#include <algorithm>

namespace kevra {
namespace {

using code_runs::pairValue;

/// Goes from one character to the next.
class CharacterConverter : public Converter {
public:
    std::size_t convert(std::string_view in, std::string &out) final
    {
        std::size_t at = 0;
        while (at < in.size()) {
            const auto length = appendFirst(in.substr(at), out);
            if (length == 0)
                break;
            at += length;
        }
        return at;
    }

private:
    /// Appends what the character at the start of `in` becomes; returns its length, 0 for none.
    [[nodiscard]] virtual std::size_t appendFirst(std::string_view in, std::string &out) const = 0;
};

class TableDecoder : public CharacterConverter {
public:
    explicit TableDecoder(const CodeTable &table)
        : m_runs(table.decoding)
    {
    }

private:
    [[nodiscard]] std::size_t appendFirst(std::string_view in, std::string &out) const override
    {
        for (std::size_t length = 1; length <= std::min(longestCode, in.size()); ++length) {
            const auto found = code_runs::mapped(m_runs, code_runs::bytesValue(in.substr(0, length)));
            if (!found)
                continue;
            if (*found > code_runs::largestCharacter)
                appendUtf8(out, *found >> 16);
            appendUtf8(out, *found > code_runs::largestCharacter ? *found & 0xFFFF : *found);
            return length;
        }
        return 0;
    }

    std::span<const CodeRun> m_runs;
};

class TableEncoder : public CharacterConverter {
public:
    explicit TableEncoder(const CodeTable &table)
        : m_runs(table.encoding)
    {
    }

private:
    [[nodiscard]] std::size_t appendFirst(std::string_view in, std::string &out) const override
    {
        const auto first = firstCharacter(in);
        if (first.length == 0)
            return 0;
        const auto rest = in.substr(first.length);
        const auto second = rest.empty() ? Utf8Character() : firstCharacter(rest);
        if (mayPair(first.value) && mayPair(second.value)
            && append(pairValue(first.value, second.value), out))
            return first.length + second.length;
        return append(first.value, out) ? first.length : 0;
    }

    [[nodiscard]] static bool mayPair(char32_t c) { return c >= 0x80 && c < 0x10000; }

    [[nodiscard]] bool append(std::uint32_t value, std::string &out) const
    {
        const auto found = code_runs::mapped(m_runs, value);
        if (found)
            out += code_runs::bytesOf(*found);
        return found.has_value();
    }

    std::span<const CodeRun> m_runs;
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

class WideDecoder : public CharacterConverter {
public:
    explicit WideDecoder(WideForm form)
        : m_form(form)
    {
    }

private:
    [[nodiscard]] std::size_t appendFirst(std::string_view in, std::string &out) const override
    {
        if (in.size() < m_form.unit)
            return 0;
        const auto first = unitAt(in, m_form);
        if (first < 0xD800 || first >= 0xE000) {
            if (first > code_runs::largestCharacter)
                return 0;
            appendUtf8(out, first);
            return m_form.unit;
        }
        const bool canPair = m_form.unit == 2 && first < 0xDC00 && in.size() >= 2 * m_form.unit;
        const auto second = canPair ? unitAt(in.substr(m_form.unit), m_form) : 0;
        if (second < 0xDC00 || second >= 0xE000)
            return 0;
        appendUtf8(out, 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00));
        return 2 * m_form.unit;
    }

    WideForm m_form;
};

class WideEncoder : public CharacterConverter {
public:
    explicit WideEncoder(WideForm form)
        : m_form(form)
    {
    }

private:
    [[nodiscard]] std::size_t appendFirst(std::string_view in, std::string &out) const override
    {
        const auto [character, length] = firstCharacter(in);
        if (length == 0)
            return 0;
        if (m_form.unit == 4 || character < 0x10000) {
            appendUnit(character, m_form, out);
            return length;
        }
        appendUnit(0xD800 + ((character - 0x10000) >> 10), m_form, out);
        appendUnit(0xDC00 + ((character - 0x10000) & 0x3FF), m_form, out);
        return length;
    }

    WideForm m_form;
};

template <typename Decoder, typename Encoder, typename Form>
std::unique_ptr<Converter> make(bool decodes, const Form &form)
{
    if (decodes)
        return std::make_unique<Decoder>(form);
    return std::make_unique<Encoder>(form);
}

} // namespace

std::unique_ptr<Converter> Converter::between(const std::string &from, const std::string &to)
{
    const bool decodes = to == "UTF-8";
    const auto &name = decodes ? from : to;
    const auto tables = codeTables();
    if (const auto table = std::ranges::find(tables, name, &CodeTable::libraryName); table != tables.end())
        return make<TableDecoder, TableEncoder>(decodes, *table);
    const auto sets = characterSets();
    const auto set = std::ranges::find(sets, name, &CharacterSet::libraryName);
    if (set == sets.end() || set->form != Form::Wide)
        return nullptr;
    const WideForm form{static_cast<std::size_t>(unitSize(set->encoding)),
        set->encoding == Encoding::Utf16Be || set->encoding == Encoding::Utf32Be};
    return make<WideDecoder, WideEncoder>(decodes, form);
}

} // namespace kevra
