// SPDX-License-Identifier: GPL-3.0-or-later
// Resolves the name at a position and finds all its occurrences.
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
    TextRange place; ///< the name at the position
    SymbolId symbol = 0; ///< 0: not declared in the part, perhaps in another file
    std::string_view name; ///< without brackets
    /// Global, so also visible in files loaded together with this one.
    bool isGlobal = false;
    std::string_view ofClass; ///< of a member: its class, which is global

    [[nodiscard]] bool isShared() const { return isGlobal || !ofClass.empty(); }
};

/// Nothing if there is no name, or one of the language or the host.
[[nodiscard]] std::optional<NamedThing> namedAt(const FileModel &file, Offset offset);
/// The innermost Name, Identifier, Member or New whose name is at the position or ends there, or 0.
[[nodiscard]] NodeId nameNodeAt(const FilePart &part, Offset offset);
/// The symbol of a name's node, including members of the script's classes.
[[nodiscard]] SymbolId symbolOf(const Model &model, NodeId node);

/// Ascending, with the declarations. Get, Let and Set of a property are one symbol.
[[nodiscard]] std::vector<Occurrence> occurrences(const FilePart &part, SymbolId symbol);
/// The global declarations of the name in the part, and its uses that refer to them or to another file.
[[nodiscard]] std::vector<Occurrence> globalOccurrences(const FilePart &part, std::string_view name);
/// The same of a shared symbol, in any of the parts that are loaded together.
[[nodiscard]] std::vector<Occurrence> sharedOccurrences(const FilePart &part, const NamedThing &thing);
/// Uses of a member of that name on objects of unknown class.
[[nodiscard]] std::vector<TextRange> uncertainUses(const FilePart &part, std::string_view member);

} // namespace kevra::script
