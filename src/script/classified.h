// SPDX-License-Identifier: GPL-3.0-or-later
// Classifies each word of a script for semantic colouring.
#pragma once

#include "script/file_model.h"

#include <vector>

namespace kevra::script {

enum class WordClass : std::uint8_t {
    Keyword,
    Variable,
    Constant,
    Parameter,
    Function,
    Method,
    Property,
    Class,
    String,
    Number,
    Operator,
    Comment,
};

struct ClassifiedWord {
    TextRange range; ///< on one line
    WordClass what{};
    bool declares = false;
    bool provided = false; ///< by the language or the host
};

/// Ascending, without overlaps; punctuation is left out.
[[nodiscard]] std::vector<ClassifiedWord> classified(const FileModel &file);

} // namespace kevra::script
