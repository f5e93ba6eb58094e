// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/find.h"

#include "editor/words.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace kevra {
namespace {

/// The small form of a letter of two UTF-8 bytes (Latin, Greek, Cyrillic), as two bytes; others unchanged.
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

bool equalIgnoringCase(const char *text, std::string_view lowered)
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

/// Finds without regard to case: by the first byte in both its forms, or byte by byte when it has more forms.
class FoldedSearch {
public:
    explicit FoldedSearch(std::string_view what)
        : m_what(lowered(what))
    {
    }

    [[nodiscard]] std::optional<Offset> next(std::string_view text, Offset from, Offset end) const
    {
        const auto last = end - static_cast<Offset>(m_what.size());
        const char first = m_what.front();
        const bool manyForms = static_cast<unsigned char>(first) >= 0x80;
        const char upper = first >= 'a' && first <= 'z' ? static_cast<char>(first - ('a' - 'A')) : first;
        for (Offset at = from; at <= last; ++at) {
            const char byte = text[static_cast<std::size_t>(at)];
            if ((manyForms || byte == first || byte == upper) && equalIgnoringCase(text.data() + at, m_what))
                return at;
        }
        return std::nullopt;
    }

private:
    std::string m_what;
};

} // namespace

std::optional<Offset> find(std::string_view text, std::string_view what, TextRange range, FindOptions options)
{
    const Offset start = std::max<Offset>(range.start, 0);
    const Offset end = std::min(range.end, static_cast<Offset>(text.size()));
    const auto length = static_cast<Offset>(what.size());
    if (what.empty() || end - start < length)
        return std::nullopt;

    const FoldedSearch folded(options.letters == Case::Ignore ? what : std::string_view("?"));
    const auto within = text.substr(0, static_cast<std::size_t>(end));
    for (Offset from = start; from + length <= end; ++from) {
        std::optional<Offset> hit;
        if (options.letters == Case::Ignore)
            hit = folded.next(text, from, end);
        else if (const auto at = within.find(what, static_cast<std::size_t>(from));
                 at != std::string_view::npos)
            hit = static_cast<Offset>(at);
        if (!hit || options.words == Word::Any || isWholeWord(text, {*hit, *hit + length}))
            return hit;
        from = *hit;
    }
    return std::nullopt;
}

} // namespace kevra
