// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/find.h"

#include "text/utf8.h"
#include "text/words.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

namespace kevra {
namespace {

/// The lower case of a letter of two UTF-8 bytes (Latin, Greek, Cyrillic); other characters unchanged.
unsigned lowerPair(unsigned lead, unsigned tail)
{
    const unsigned code = (lead & 0x1F) << 6 | (tail & 0x3F);
    unsigned lower = code;
    if ((code >= 0xC0 && code <= 0xDE && code != 0xD7) || (code >= 0x391 && code <= 0x3A9)
        || (code >= 0x410 && code <= 0x42F))
        lower = code + 0x20;
    else if (code >= 0x400 && code <= 0x40F)
        lower = code + 0x50;
    else if ((code >= 0x100 && code <= 0x137) || (code >= 0x14A && code <= 0x177)
        || (code >= 0x460 && code <= 0x481) || (code >= 0x48A && code <= 0x4BF))
        lower = code == 0x130 || code == 0x131 ? code : code | 1;
    else if ((code >= 0x139 && code <= 0x148) || (code >= 0x179 && code <= 0x17E))
        lower = code + (code & 1);
    return (0xC0 | lower >> 6) << 8 | (0x80 | (lower & 0x3F));
}

bool equalsLowered(const char *text, std::string_view lowered)
{
    for (std::size_t i = 0; i < lowered.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 0xC3 && byte <= 0xD3 && i + 1 < lowered.size()) {
            const auto pair = lowerPair(byte, static_cast<unsigned char>(text[i + 1]));
            if (static_cast<char>(pair >> 8) != lowered[i]
                || static_cast<char>(pair & 0xFF) != lowered[i + 1])
                return false;
            ++i;
        } else if (lowerAscii(text[i]) != lowered[i]) {
            return false;
        }
    }
    return true;
}

std::string lowered(std::string_view what)
{
    std::string out(what);
    for (std::size_t i = 0; i < out.size(); ++i) {
        const auto byte = static_cast<unsigned char>(out[i]);
        if (byte >= 0xC3 && byte <= 0xD3 && i + 1 < out.size()) {
            const auto pair = lowerPair(byte, static_cast<unsigned char>(out[i + 1]));
            out[i] = static_cast<char>(pair >> 8);
            out[++i] = static_cast<char>(pair & 0xFF);
        } else {
            out[i] = lowerAscii(out[i]);
        }
    }
    return out;
}

bool isWholeWord(std::string_view text, TextRange hit)
{
    return !wordBefore(text, hit.start) && !wordAt(text, hit.end);
}

constexpr unsigned firstPair = 0xC380; ///< U+00C0
constexpr unsigned lastPair = 0xD3BF; ///< U+04FF

/// The possible bytes at `at` of the two-byte letter that starts at `lead`, in both cases; two at most.
std::pair<unsigned char, unsigned char> formsInPair(
    std::string_view lowered, std::size_t lead, std::size_t at)
{
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(lowered[i]); };
    const unsigned lower = static_cast<unsigned>(byteAt(lead)) << 8 | byteAt(lead + 1);
    const unsigned shift = at == lead ? 8 : 0;
    std::pair<unsigned char, unsigned char> forms{byteAt(at), byteAt(at)};
    for (unsigned pair = firstPair; pair <= lastPair; ++pair)
        if ((pair & 0xC0) == 0x80 && pair != lower && lowerPair(pair >> 8, pair & 0xFF) == lower)
            forms.second = static_cast<unsigned char>(pair >> shift & 0xFF);
    return forms;
}

std::pair<unsigned char, unsigned char> formsAt(std::string_view lowered, std::size_t at)
{
    const auto isLead = [&](std::size_t i) {
        const auto byte = static_cast<unsigned char>(lowered[i]);
        return byte >= 0xC3 && byte <= 0xD3 && i + 1 < lowered.size();
    };
    const auto byte = static_cast<unsigned char>(lowered[at]);
    if (byte >= 'a' && byte <= 'z')
        return {byte, static_cast<unsigned char>(byte - ('a' - 'A'))};
    if (isLead(at))
        return formsInPair(lowered, at, at);
    if (at > 0 && continuesCharacter(lowered[at]) && isLead(at - 1))
        return formsInPair(lowered, at - 1, at);
    return {byte, byte};
}

/// Sixteen bytes, compared at once by the vector instructions of the machine.
using Block = unsigned char __attribute__((vector_size(16)));
constexpr Offset blockSize = sizeof(Block);

Block load(const char *from)
{
    Block block;
    std::memcpy(&block, from, sizeof block);
    return block;
}

bool isZero(Block block)
{
    std::uint64_t halves[2];
    std::memcpy(halves, &block, sizeof block);
    return (halves[0] | halves[1]) == 0;
}

} // namespace

bool sameForSearch(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && lowered(a) == lowered(b);
}

Finder::Finder(std::string_view what, FindOptions options)
    : m_what(options.letters == Case::Ignore ? lowered(what) : std::string(what))
    , m_options(options)
{
    if (m_what.empty())
        return;
    const auto forms = [&](std::size_t at) -> Forms {
        const auto byte = static_cast<unsigned char>(m_what[at]);
        if (options.letters == Case::Match)
            return {byte, byte};
        const auto [a, b] = formsAt(m_what, at);
        return {a, b};
    };
    m_first = forms(0);
    m_last = forms(m_what.size() - 1);
}

bool Finder::matches(const char *at) const
{
    return m_options.letters == Case::Ignore ? equalsLowered(at, m_what)
                                             : std::memcmp(at, m_what.data(), m_what.size()) == 0;
}

std::optional<Offset> Finder::firstOccurrence(std::string_view text, Offset from, Offset end) const
{
    // Blocks are searched for positions where the first and the last byte match; only there all are compared.
    const char *const data = text.data();
    const auto lastIndex = std::ssize(m_what) - 1;
    const auto fits = [](unsigned char byte, Forms forms) { return byte == forms.a || byte == forms.b; };
    const auto hitIn = [&](Offset start, Offset stop) -> std::optional<Offset> {
        for (Offset at = start; at < stop; ++at)
            if (fits(static_cast<unsigned char>(data[at]), m_first)
                && fits(static_cast<unsigned char>(data[at + lastIndex]), m_last) && matches(data + at))
                return at;
        return std::nullopt;
    };
    Offset at = from;
    for (; at + blockSize + lastIndex <= end; at += blockSize) {
        const auto first = load(data + at);
        const auto last = load(data + at + lastIndex);
        const auto both
            = ((first == m_first.a) | (first == m_first.b)) & ((last == m_last.a) | (last == m_last.b));
        if (isZero(reinterpret_cast<Block>(both)))
            continue;
        if (const auto hit = hitIn(at, at + blockSize))
            return hit;
    }
    return hitIn(at, end - lastIndex);
}

std::optional<Offset> Finder::first(std::string_view text, TextRange range) const
{
    const auto length = std::ssize(m_what);
    const Offset end = std::min(range.end, std::ssize(text));
    if (m_what.empty())
        return std::nullopt;
    for (Offset from = std::max<Offset>(range.start, 0); from + length <= end; ++from) {
        const auto hit = firstOccurrence(text, from, end);
        if (!hit || m_options.words == Word::Any || isWholeWord(text, {*hit, *hit + length}))
            return hit;
        from = *hit;
    }
    return std::nullopt;
}

std::optional<Offset> findText(
    std::string_view text, std::string_view what, TextRange range, FindOptions options)
{
    if (range.end - range.start < std::ssize(what))
        return std::nullopt;
    return Finder(what, options).first(text, range);
}

} // namespace kevra
