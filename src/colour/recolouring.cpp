// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/recolouring.h"

#include "colour/keyword_pass.h"
#include "colour/region_colouring.h"
#include "colour/tag_pass.h"
#include "editor/nearby.h"

#include <algorithm>

namespace kevra {
namespace {

/// Close to the document's start a tag's colour hangs on how much text stands before it.
constexpr Offset nearStart = 4096;

/// Behind an edit longer than this everything is painted anew: a control may put off a document's tail.
constexpr Offset longEdit = Offset{256} * 1024;

/// The part to paint anew. Right behind a ">" no tag is open, whatever came before; so a part may start
/// there, and what follows the first ">" behind the edit has not changed.
TextRange partToMend(const EditorSurface &document, TextRange touched)
{
    const auto start = touched.start < nearStart ? 0 : lastOf(document, '>', touched.start) + 1;
    if (touched.length() > longEdit)
        return {start, document.Length()};
    const auto end = firstOf(document, ">", std::max(touched.end, start == 0 ? 2 * nearStart : 0));
    return {start, end == -1 ? document.Length() : end + 1};
}

bool reachesFarBack(const ColourRuns &runs, Offset before)
{
    return std::ranges::any_of(runs, [before](const ColourRun &run) {
        return tagIsLongForItsPlace(run.range.start + before, run.range.end + before - 1);
    });
}

/// The tags of a part that begins behind a tag.
ColourRuns tagRunsIn(const EditorSurface &document, TextRange part, Colour code)
{
    if (part.start > 0) {
        auto runs = plainTagRuns(document.Text(part), code);
        if (!reachesFarBack(runs, part.start)) {
            for (auto &run : runs)
                run.range = {run.range.start + part.start, run.range.end + part.start};
            return runs;
        }
    }
    return tagRuns(document.Text({0, part.end}), code);
}

} // namespace

void mendTags(EditorSurface &document, TextRange touched, Colour code)
{
    const auto part = partToMend(document, touched);
    document.SetColours(part, tagRunsIn(document, part, code));
}

void mendScript(EditorSurface &document, Colour code)
{
    document.SetColours({0, document.Length()}, scriptRuns(document.Text(), code));
}

void mendScriptLines(EditorSurface &document, TextRange touched, Colour code)
{
    const auto selection = document.Selection();
    const auto lineEnd = firstOf(document, "\r", touched.end);
    recolourRegion(
        document, {lineStart(document, touched.start), lineEnd == -1 ? document.Length() : lineEnd}, code);
    document.Select(selection);
}

void recolourInserted(EditorSurface &document, TextRange touched, const DocumentState &state)
{
    if (!state.takesColour())
        document.SetColours(touched, {});
    else if (state.scriptTools)
        mendScript(document, state.codeColour);
    else
        mendTags(document, touched, state.codeColour);
}

} // namespace kevra
