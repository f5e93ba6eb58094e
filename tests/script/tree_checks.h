// SPDX-License-Identifier: GPL-3.0-or-later
// What holds of every tree and every row of tokens, whatever the text.
#pragma once

#include "script/parser.h"

#include <string_view>

namespace kevra::script {

/// Ranges lie in the text and in their parent's, siblings follow one another, and no path is too deep.
void expectSoundTree(const ParsedScript &script);

/// Between tokens lie only blanks, continued lines and comments.
void expectTokensCover(std::string_view text);

} // namespace kevra::script
