// SPDX-License-Identifier: GPL-3.0-or-later
// Indentation, the case of keywords and the blanks between words. The words themselves, comments and
// continued lines stay, and what was formatted is not changed a second time.
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

/// Ascending. None where the words would not stay the same.
[[nodiscard]] std::vector<TextEdit> formatted(const FileModel &file, const FormatOptions &options);

/// After a line break was typed before `offset`: the indentation of that line and of the one before.
[[nodiscard]] std::vector<TextEdit> indentedAfterBreak(
    const FileModel &file, Offset offset, const FormatOptions &options);

} // namespace kevra::script
