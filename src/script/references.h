// SPDX-License-Identifier: GPL-3.0-or-later
// What a name at a place stands for, and everywhere it stands for that.
#pragma once

#include "script/file_model.h"

#include <optional>
#include <string>
#include <vector>

namespace kevra::script {

enum class Use : std::uint8_t { Declaration, Read, Write };

struct Occurrence {
    TextRange range; ///< of the name alone, with its brackets
    Use use{};
};

struct NamedThing {
    const FilePart *part = nullptr;
    TextRange place; ///< the name that was asked about
    SymbolId symbol = 0; ///< 0: the part declares no such thing, another file may
    std::string_view name; ///< without brackets
    /// Known in the whole part, so that files loaded beside it know it as well.
    bool isGlobal = false;
};

/// Nothing where no name stands, or one that the language or the host provides.
[[nodiscard]] std::optional<NamedThing> namedAt(const FileModel &file, Offset offset);
/// The innermost Name, Identifier, Member or New whose name is at the place or ends there; 0 where there is
/// none.
[[nodiscard]] NodeId nameNodeAt(const FilePart &part, Offset offset);
/// What the node of a name stands for, members of the script's own classes included.
[[nodiscard]] SymbolId symbolOf(const Model &model, NodeId node);

/// Ascending, with the declarations. A property's three forms are one thing.
[[nodiscard]] std::vector<Occurrence> occurrences(const FilePart &part, SymbolId symbol);
/// Where the part declares the name for the whole part, or uses it and leaves it to others to declare it.
[[nodiscard]] std::vector<Occurrence> globalOccurrences(const FilePart &part, std::string_view name);
/// Uses of a member of that name where the class of the object is not known.
[[nodiscard]] std::vector<TextRange> uncertainUses(const FilePart &part, SymbolId symbol);

} // namespace kevra::script
