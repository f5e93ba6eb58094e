// SPDX-License-Identifier: GPL-3.0-or-later
// Formats indentation, the case of keywords and the blanks between words. Words, comments and line breaks are
// kept, and formatting twice changes nothing more.
#pragma once

#include "script/file_model.h"
#include "script/finding.h"

#include <string>
#include <vector>

namespace kevra::script {

struct FormatOptions {
    unsigned tabSize = 4; ///< columns of a level, and of a tab
    bool insertSpaces = true;
};

/// Ascending. None if the words would change.
[[nodiscard]] std::vector<TextEdit> formatted(const FileModel &file, const FormatOptions &options);

/// After a line break was typed before `offset`: indents that line and the one before.
[[nodiscard]] std::vector<TextEdit> indentedAfterBreak(
    const FileModel &file, Offset offset, const FormatOptions &options);

} // namespace kevra::script
