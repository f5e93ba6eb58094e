// SPDX-License-Identifier: GPL-3.0-or-later
// Folding ranges, and the ranges for expanding a selection.
#pragma once

#include "script/file_model.h"

#include <vector>

namespace kevra::script {

struct Fold {
    std::size_t first = 0; ///< lines from 0; the first stays visible
    std::size_t last = 0;
    bool isComment = false;

    friend bool operator==(const Fold &, const Fold &) = default;
};

/// Blocks and the elements that hold script, without the line of their end, and runs of comment lines.
/// Ascending by their first lines, the longest first.
[[nodiscard]] std::vector<Fold> folds(const FileModel &file);

/// The ranges around a position from the word to the whole text, each wider than the one before.
[[nodiscard]] std::vector<TextRange> widening(const FileModel &file, Offset offset);

} // namespace kevra::script
