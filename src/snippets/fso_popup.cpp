// SPDX-License-Identifier: GPL-3.0-or-later
#include "snippets/fso_popup.h"

#include "editor/nearby.h"
#include "text/words.h"

namespace kevra {
namespace {

bool beginsWithRem(std::string_view text)
{
    constexpr std::string_view rem = "rem";
    return startsWithIgnoringCase(text, rem) && (text.size() == rem.size() || !isAsciiWord(text[rem.size()]));
}

bool endsInCode(std::string_view line)
{
    bool literal = false;
    bool statementStart = true;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"')
            literal = !literal;
        else if (!literal && (line[i] == '\'' || (statementStart && beginsWithRem(line.substr(i)))))
            return false;
        statementStart
            = !literal && (line[i] == ':' || (statementStart && (line[i] == ' ' || line[i] == '\t')));
    }
    return !literal;
}

} // namespace

bool offersFsoMethods(const EditorSurface &surface)
{
    constexpr std::string_view trigger = "fso.";
    const auto caret = surface.SelStart();
    const auto before = surface.Text({caret - static_cast<Offset>(trigger.size()), caret});
    return surface.SelLength() == 0 && equalIgnoringCase(before, trigger)
        && endsInCode(surface.Text({lineStart(surface, caret), caret}));
}

} // namespace kevra
