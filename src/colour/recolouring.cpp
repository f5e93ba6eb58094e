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
std::optional<TextRange> partToRecolour(const EditorSurface &surface, TextRange touched)
{
    // After a long edit all the rest is recoloured: a control may defer the end of a document.
    const bool isLong = touched.length() > keyReach;
    const auto reach = isLong ? wholeText : keyReach;
    const auto from = std::max<Offset>(0, touched.start - reach);
    const auto tagEnd = lastOf(surface, '>', touched.start, from);
    const auto start = touched.start < nearStart ? 0 : tagEnd + 1;
    if (start > 0 || from == 0) {
        if (isLong)
            return TextRange{start, surface.TextLength()};
        const auto next = std::max(touched.end, start == 0 ? 2 * nearStart : 0);
        const auto end = firstOf(surface, ">", next, next + reach);
        if (end != -1 || next + reach >= surface.TextLength())
            return TextRange{start, end == -1 ? surface.TextLength() : end + 1};
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
ColourRuns tagRunsIn(const EditorSurface &surface, TextRange part, Colour code)
{
    if (part.start > 0) {
        auto runs = plainTagRuns(surface.Text(part), code);
        if (!needsTextBefore(runs, part.start)) {
            for (auto &run : runs)
                run.range = {run.range.start + part.start, run.range.end + part.start};
            return runs;
        }
    }
    return tagRuns(surface.Text({0, part.end}), code);
}

/// The touched lines, extended by the lines that share a placeholder with them.
TextRange linesToRecolour(const EditorSurface &surface, TextRange touched)
{
    auto lines = linesOf(surface, touched);
    while (surface.ColourAt(lines.start - 1) == colours::placeholder)
        lines.start = lineStart(surface, lines.start - 1);
    while (surface.ColourAt(lines.end) == colours::placeholder)
        lines.end = linesOf(surface, {lines.end + 1, lines.end + 1}).end;
    return lines;
}

/// Adds runs that keep the unfinished lines black, except for characters that already have their new colour.
void keepBlack(const EditorSurface &surface, TextRange lines, ColourRuns &runs)
{
    const auto wanted = runs;
    for (TextRange rest = lines; rest.start <= rest.end;) {
        const auto at = surface.NextUnfinished(rest);
        if (at == -1)
            return;
        const auto line = linesOf(surface, {at, at});
        runs.push_back({line, colours::black});
        for (const auto &run : wanted)
            for (auto i = std::max(run.range.start, line.start); i < std::min(run.range.end, line.end); ++i)
                if (surface.ColourAt(i) == run.colour)
                    runs.push_back({{i, i + 1}, run.colour});
        rest.start = line.end + 1;
    }
}

} // namespace

void recolourTags(EditorSurface &surface, TextRange touched, Colour code)
{
    if (const auto part = partToRecolour(surface, touched))
        surface.SetColours(*part, tagRunsIn(surface, *part, code));
}

void recolourScript(EditorSurface &surface, TextRange touched, Colour code)
{
    if (touched.length() <= keyReach && onLongLine(surface, touched))
        return surface.SetUnfinished(touched.start, true);
    const auto lines = linesToRecolour(surface, touched);
    auto runs = scriptRuns(surface.Text(lines), code);
    for (auto &run : runs)
        run.range = {run.range.start + lines.start, run.range.end + lines.start};
    keepBlack(surface, lines, runs);
    surface.SetColours(lines, runs);
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
