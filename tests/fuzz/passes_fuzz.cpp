// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a page and as a script: every run lies inside the text, and an edit's mending leaves what a
// whole pass paints.
#include "colour/keyword_pass.h"
#include "colour/recolouring.h"
#include "colour/tag_pass.h"
#include "editor/memory_surface.h"

#include <cstdlib>

using namespace kevra;

namespace {

void requireInside(const ColourRuns &runs, std::size_t size)
{
    for (const auto &run : runs) {
        if (run.range.start < 0 || run.range.end > static_cast<Offset>(size)
            || run.range.start > run.range.end)
            std::abort();
    }
}

void requireSameColours(const EditorSurface &a, const EditorSurface &b)
{
    for (Offset at = 0; at < a.TextLength(); ++at) {
        if (a.ColourAt(at) != b.ColourAt(at))
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const char *data, std::size_t size)
{
    constexpr auto code = colours::defaultCode;
    const std::string_view text(data, size);
    const auto tags = tagRuns(text, code);
    const auto keywords = scriptRuns(text, code);
    requireInside(tags, size);
    requireInside(keywords, size);
    const auto middle = static_cast<Offset>(size / 2);
    requireInside(regionRuns(text, {middle / 2, middle}, code).runs, size);

    MemorySurface whole(text);
    whole.SetColours({0, whole.TextLength()}, tags);
    MemorySurface edited(text);
    edited.SetColours({0, edited.TextLength()}, tags);
    edited.Replace({middle, middle}, "<");
    recolourTags(edited, {middle, middle + 1}, code);
    edited.Replace({middle, middle + 1}, "");
    recolourTags(edited, {middle, middle}, code);
    requireSameColours(whole, edited);
    return 0;
}
