// SPDX-License-Identifier: GPL-3.0-or-later
#include "snippets/fso_popup.h"

#include "editor/nearby.h"
#include "text/words.h"

#include <algorithm>

namespace kevra {
namespace {

bool endsInCode(std::string_view line)
{
    bool literal = false;
    for (const char byte : line) {
        if (byte == '"')
            literal = !literal;
        else if (byte == '\'' && !literal)
            return false;
    }
    return !literal;
}

} // namespace

bool offersFsoMethods(const EditorSurface &document)
{
    constexpr std::string_view trigger = "fso.";
    const auto caret = document.SelStart();
    const auto before = document.Text({caret - static_cast<Offset>(trigger.size()), caret});
    return document.SelLength() == 0 && std::ranges::equal(before, trigger, {}, lowerAscii)
        && endsInCode(document.Text({lineStart(document, caret), caret}));
}

} // namespace kevra
