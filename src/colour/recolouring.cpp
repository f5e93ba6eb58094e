// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/recolouring.h"

#include "colour/keyword_pass.h"
#include "colour/region_colouring.h"
#include "colour/tag_pass.h"
#include "editor/nearby.h"

#include <algorithm>
#include <optional>

namespace kevra {
namespace {

/// Near the start of the document, the colour of a tag depends on the amount of text before it.
constexpr Offset nearStart = 4096;

/// The part to recolour. Just after a ">" no tag is open, so the part can start there, and the colours after
/// the first ">" that follows the edit have not changed.
/// Nothing if no tag ends within reach: a key must not wait for a search through megabytes.
std::optional<TextRange> partToRecolour(const EditorSurface &document, TextRange touched)
{
    // After a long edit all the rest is recoloured: a control may defer the end of a document.
    const bool isLong = touched.length() > keyReach;
    const auto reach = isLong ? wholeText : keyReach;
    const auto from = std::max<Offset>(0, touched.start - reach);
    const auto tagEnd = lastOf(document, '>', touched.start, from);
    const auto start = touched.start < nearStart ? 0 : tagEnd + 1;
    if (start > 0 || from == 0) {
        if (isLong)
            return TextRange{start, document.Length()};
        const auto next = std::max(touched.end, start == 0 ? 2 * nearStart : 0);
        const auto end = firstOf(document, ">", next, next + reach);
        if (end != -1 || next + reach >= document.Length())
            return TextRange{start, end == -1 ? document.Length() : end + 1};
    }
    return std::nullopt;
}

bool needsTextBefore(const ColourRuns &runs, Offset before)
{
    return std::ranges::any_of(runs, [before](const ColourRun &run) {
        return mayNeedInnerSearch(run.range.start + before, run.range.end + before - 1);
    });
}

/// The tags of a part that starts after a tag or at the start of the document.
ColourRuns tagRunsIn(const EditorSurface &document, TextRange part, Colour code)
{
    if (part.start > 0) {
        auto runs = plainTagRuns(document.Text(part), code);
        if (!needsTextBefore(runs, part.start)) {
            for (auto &run : runs)
                run.range = {run.range.start + part.start, run.range.end + part.start};
            return runs;
        }
    }
    return tagRuns(document.Text({0, part.end}), code);
}

/// The touched lines, extended by the lines that share a placeholder with them.
TextRange linesToRecolour(const EditorSurface &document, TextRange touched)
{
    auto lines = linesOf(document, touched);
    while (document.ColourAt(lines.start - 1) == colours::placeholder)
        lines.start = lineStart(document, lines.start - 1);
    while (document.ColourAt(lines.end) == colours::placeholder)
        lines.end = linesOf(document, {lines.end + 1, lines.end + 1}).end;
    return lines;
}

/// Adds runs that keep the unfinished lines black, except for characters that already have their new colour.
void keepBlack(const EditorSurface &document, TextRange lines, ColourRuns &runs)
{
    const auto wanted = runs;
    for (TextRange rest = lines; rest.start <= rest.end;) {
        const auto at = document.NextUnfinished(rest);
        if (at == -1)
            return;
        const auto line = linesOf(document, {at, at});
        runs.push_back({line, colours::black});
        for (const auto &run : wanted)
            for (auto i = std::max(run.range.start, line.start); i < std::min(run.range.end, line.end); ++i)
                if (document.ColourAt(i) == run.colour)
                    runs.push_back({{i, i + 1}, run.colour});
        rest.start = line.end + 1;
    }
}

} // namespace

void recolourTags(EditorSurface &document, TextRange touched, Colour code)
{
    if (const auto part = partToRecolour(document, touched))
        document.SetColours(*part, tagRunsIn(document, *part, code));
}

void recolourScript(EditorSurface &document, TextRange touched, Colour code)
{
    if (touched.length() <= keyReach && onLongLine(document, touched))
        return document.SetUnfinished(touched.start, true);
    const auto lines = linesToRecolour(document, touched);
    auto runs = scriptRuns(document.Text(lines), code);
    for (auto &run : runs)
        run.range = {run.range.start + lines.start, run.range.end + lines.start};
    keepBlack(document, lines, runs);
    document.SetColours(lines, runs);
}

void recolourInserted(EditedDocument document, TextRange touched)
{
    auto &[surface, state] = document;
    if (!state.takesColour())
        surface.SetColours(touched, {});
    else if (state.scriptTools) {
        surface.FinishLines(linesOf(surface, touched));
        recolourScript(surface, touched, state.options.codeColour);
    } else {
        recolourTags(surface, touched, state.options.codeColour);
    }
}

} // namespace kevra
