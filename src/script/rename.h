// SPDX-License-Identifier: GPL-3.0-or-later
// Renames a symbol at all its occurrences, or says why that is not possible.
#pragma once

#include "script/finding.h"
#include "script/references.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra::script {

struct Renaming {
    std::vector<TextEdit> edits; ///< ascending
    std::string refusal; ///< a sentence; the edits are empty then
};

/// In the file of `thing` alone.
[[nodiscard]] Renaming renamed(const FileModel &file, const NamedThing &thing, std::string_view newName);

/// Renames a global name in one of several files; `places` are its occurrences there. Refused if another name
/// would change its meaning.
[[nodiscard]] Renaming renamedPlaces(
    const FileModel &file, const std::vector<Occurrence> &places, std::string_view newName);

/// Why a member cannot be renamed, as far as this part of the file is concerned; empty if it can.
[[nodiscard]] std::string uncertainty(const FileModel &file, const FilePart &part, const NamedThing &thing);

/// Why this is not a valid name; empty if it is.
[[nodiscard]] std::string whyNoName(std::string_view name);

} // namespace kevra::script
