// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/iso2022_jp.h"

#include "encoding/converter.h"
#include "text/utf8.h"

#include <algorithm>
#include <array>

namespace kevra {
namespace {

constexpr auto libraryName = "EUC-JP-MS";
constexpr char escape = '\x1B';
constexpr char kanaLead = '\x8E';
constexpr char32_t yen = 0xA5;
constexpr char32_t overline = 0x203E;

struct EscapeSequence {
    std::string_view bytes;
    Shift shift;
};

/// The first one of each set is written.
constexpr std::array sequences{
    EscapeSequence{"\x1B(B", Shift::Ascii},
    EscapeSequence{"\x1B(J", Shift::Roman},
    EscapeSequence{"\x1B(I", Shift::Katakana},
    EscapeSequence{"\x1B$B", Shift::TwoBytes},
    EscapeSequence{"\x1B$@", Shift::TwoBytes},
};

const EscapeSequence *sequenceAt(std::string_view bytes)
{
    const auto it
        = std::ranges::find_if(sequences, [&](const auto &row) { return bytes.starts_with(row.bytes); });
    return it == sequences.end() ? nullptr : &*it;
}

constexpr bool isGraphic(char c)
{
    return c > ' ' && c < '\x7F';
}

char high(char c)
{
    return static_cast<char>(c | 0x80);
}

char low(char c)
{
    return static_cast<char>(c & 0x7F);
}

struct Coded {
    Shift shift;
    std::string bytes;
};

std::optional<Coded> coded(std::string_view character, Converter &library)
{
    const auto value = firstCharacter(character).value;
    if (value < 0x80 && value != escape)
        return Coded{Shift::Ascii, std::string(character)};
    if (value == yen || value == overline)
        return Coded{Shift::Roman, value == yen ? "\\" : "~"};
    std::string euc;
    if (library.convert(character, euc) != character.size() || euc.size() != 2)
        return std::nullopt;
    if (euc[0] == kanaLead)
        return Coded{Shift::Katakana, {low(euc[1])}};
    return Coded{Shift::TwoBytes, {low(euc[0]), low(euc[1])}};
}

} // namespace

Iso2022JpDecoder::Iso2022JpDecoder()
    : m_library(Converter::between(libraryName, "UTF-8"))
{
}

Iso2022JpDecoder::~Iso2022JpDecoder() = default;

std::size_t Iso2022JpDecoder::convert(std::string_view in, std::string &out)
{
    std::size_t at = 0;
    while (at < in.size()) {
        const auto rest = in.substr(at);
        if (const auto *sequence = sequenceAt(rest)) {
            m_shift = sequence->shift;
            at += sequence->bytes.size();
            continue;
        }
        const auto length = appendCharacter(rest, out);
        if (length == 0)
            break;
        at += length;
    }
    return at;
}

std::size_t Iso2022JpDecoder::appendCharacter(std::string_view in, std::string &out)
{
    const char first = in[0];
    if (first == escape || first == '\x0E' || first == '\x0F' || static_cast<unsigned char>(first) >= 0x80)
        return 0;
    if (m_shift == Shift::Roman && (first == '\\' || first == '~')) {
        appendUtf8(out, first == '~' ? overline : yen);
        return 1;
    }
    // Line ends and blanks are the same in every set.
    if (m_shift == Shift::Ascii || m_shift == Shift::Roman || !isGraphic(first)) {
        out += first;
        return 1;
    }
    if (!m_library)
        return 0;
    if (m_shift == Shift::Katakana)
        return m_library->convert(std::string{kanaLead, high(first)}, out) == 2 ? 1 : 0;
    if (in.size() < 2 || !isGraphic(in[1]))
        return 0;
    return m_library->convert(std::string{high(first), high(in[1])}, out) == 2 ? 2 : 0;
}

std::optional<std::string> toIso2022Jp(std::string_view text)
{
    const auto library = Converter::between("UTF-8", libraryName);
    std::string out;
    auto shift = Shift::Ascii;
    const auto shiftTo = [&](Shift wanted) {
        if (shift != wanted)
            out += escapeOf(wanted);
        shift = wanted;
    };
    while (library && !text.empty()) {
        const auto length = firstCharacter(text).length;
        const auto next = length == 0 ? std::nullopt : coded(text.substr(0, length), *library);
        if (!next)
            return std::nullopt;
        shiftTo(next->shift);
        out += next->bytes;
        text.remove_prefix(length);
    }
    shiftTo(Shift::Ascii);
    return library ? std::optional(out) : std::nullopt;
}

Shift shiftAfter(std::string_view bytes, Shift before)
{
    for (auto at = bytes.rfind(escape); at != std::string_view::npos; at = bytes.rfind(escape, at - 1)) {
        if (const auto *sequence = sequenceAt(bytes.substr(at)))
            return sequence->shift;
        if (at == 0)
            break;
    }
    return before;
}

std::string_view escapeOf(Shift shift)
{
    return std::ranges::find(sequences, shift, &EscapeSequence::shift)->bytes;
}

} // namespace kevra
