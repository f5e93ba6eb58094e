// SPDX-License-Identifier: GPL-3.0-or-later
// Giving a name another spelling wherever it stands for the same thing, or saying why that cannot be done.
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

/// A name that several files share, in one of them: `places` are its occurrences there. Every other name
/// keeps its meaning, or nothing is renamed.
[[nodiscard]] Renaming renamedPlaces(
    const FileModel &file, const std::vector<Occurrence> &places, std::string_view newName);

/// Why this cannot be the name of anything; empty where it can.
[[nodiscard]] std::string whyNoName(std::string_view name);

} // namespace kevra::script
