// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/region_colouring.h"

#include "colour/keyword_pass.h"
#include "colour/literals.h"
#include "colour/marks.h"
#include "editor/nearby.h"

#include <algorithm>

namespace kevra {
namespace {

/// In bytes, enough for the character before a region and for a mark that starts one position before it.
constexpr Offset lookBack = 8;

/// The part of the document that the pass over the region needs.
TextRange windowFor(const EditorSurface &surface, TextRange region)
{
    const auto start = std::max<Offset>(region.start - lookBack, 0);
    const auto markStart = std::max<Offset>(region.start - 1, 0);
    // The closing mark may be anywhere after it.
    if (surface.Text({markStart, region.end + 1}).find(placeholderOpening) != std::string_view::npos)
        return {0, surface.TextLength()};
    const auto lineEnd = firstOf(surface, "\r", region.end);
    return {start, lineEnd == -1 ? surface.TextLength() : lineEnd + 1};
}

RegionRuns runsOf(const EditorSurface &surface, TextRange region, Colour code)
{
    const auto window = windowFor(surface, region);
    const auto text = window.length() == surface.TextLength() ? surface.Text() : surface.Text(window);
    auto result = regionRuns(text, {region.start - window.start, region.end - window.start}, code);
    for (auto &run : result.runs)
        run.range = {run.range.start + window.start, run.range.end + window.start};
    return result;
}

void paint(EditorSurface &surface, const ColourRuns &runs)
{
    if (runs.empty())
        return;
    TextRange whole = runs.front().range;
    for (const auto &run : runs)
        whole = {std::min(whole.start, run.range.start), std::max(whole.end, run.range.end)};
    surface.SetColours(whole, runs, Ground::AsItIs);
}

} // namespace

bool colourRegion(EditorSurface &surface, TextRange region, Colour code)
{
    const auto result = runsOf(surface, region, code);
    paint(surface, result.runs);
    surface.SetSelStart(region.end);
    surface.SetSelColor(colours::black);
    return !result.failed;
}

void recolourRegion(EditorSurface &surface, TextRange region, Colour code)
{
    surface.SetColours({region.start, region.end + 1}, {});
    std::vector<TextRange> pieces;
    forEachPiece(surface.Text(region), {0, region.length()}, [&](TextRange piece) {
        if (!piece.empty())
            pieces.push_back({piece.start + region.start, piece.end + region.start});
    });
    for (const auto piece : pieces) {
        const auto result = runsOf(surface, piece, code);
        paint(surface, result.runs);
        if (result.failed)
            break;
    }
    surface.SetTypingColor(colours::black);
}

} // namespace kevra
