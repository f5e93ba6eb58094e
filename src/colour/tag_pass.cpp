// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/tag_pass.h"

#include "colour/add_run.h"
#include "text/words.h"

#include <cstring>

namespace kevra {
namespace {

constexpr Offset longestCharacter = 4; // bytes in UTF-8

std::string_view part(std::string_view text, Offset start, Offset end)
{
    return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

/// The offset `count` characters after `from`.
Offset skipCharacters(std::string_view text, Offset from, Offset count)
{
    const auto size = static_cast<Offset>(text.size());
    for (; count > 0 && from < size; --count)
        from += characterLength(text, from);
    return from;
}

} // namespace

bool mayNeedInnerSearch(Offset lt, Offset gt)
{
    // Estimated in bytes; characters are counted only where the result can depend on them.
    return (gt - lt) * longestCharacter >= lt + 2;
}

Offset tagRunStart(std::string_view text, Offset lt, Offset gt)
{
    if (!mayNeedInnerSearch(lt, gt))
        return lt;
    const auto before = characterCount(part(text, 0, lt));
    const auto searchFrom = skipCharacters(text, lt + 1, before + 1);
    if (searchFrom > gt)
        return lt;
    const auto inner = part(text, searchFrom, gt).find('<');
    if (inner == std::string_view::npos)
        return lt;
    const auto innerAt = searchFrom + static_cast<Offset>(inner);
    return skipCharacters(text, 0, characterCount(part(text, lt + 1, innerAt)));
}

ColourRuns tagRuns(std::string_view text, Colour colour)
{
    auto runs = plainTagRuns(text, colour);
    for (auto &run : runs)
        run.range.start = tagRunStart(text, run.range.start, run.range.end - 1);
    return runs;
}

ColourRuns plainTagRuns(std::string_view part, Colour colour)
{
    ColourRuns runs;
    const char *const begin = part.data();
    const char *const end = begin + part.size();
    const auto next = [end](const char *from, char mark) {
        return from == end
            ? nullptr
            : static_cast<const char *>(std::memchr(from, mark, static_cast<std::size_t>(end - from)));
    };
    for (const char *at = begin; const char *lt = next(at, '<');) {
        const char *const gt = next(lt + 1, '>');
        if (!gt)
            break;
        addRun(runs, {{lt - begin, gt - begin + 1}, colour}, static_cast<Offset>(part.size()));
        at = gt + 1;
    }
    return runs;
}

} // namespace kevra
