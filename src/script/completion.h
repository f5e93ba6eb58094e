// SPDX-License-Identifier: GPL-3.0-or-later
// Completion: what could be written at a position.
#pragma once

#include "script/file_model.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra::script {

enum class CompletionKind : std::uint8_t {
    Keyword,
    Variable,
    Constant,
    Function,
    Method,
    Property,
    Class,
    Object
};

struct Completion {
    std::string name;
    CompletionKind kind{};
    std::string detail; ///< how it is declared or called
    std::string_view text; ///< a description; may be empty
};

struct Completions {
    TextRange word; ///< the part already written
    std::vector<Completion> items;
    bool startsStatement = false; ///< only blanks are before it on its line
    /// What files loaded together with this one add.
    enum class Others : std::uint8_t { Nothing, Names, Classes, Members };
    Others others = Others::Nothing;
    std::string ofClass; ///< whose members
};

/// The names in scope, nearest scope first; after a dot the members of the object, if its class is known; in
/// CreateObject("...") the known ProgIDs. None in other strings, comments, numbers, or where a name is being
/// declared. `shared`: the objects of files loaded together with this one.
[[nodiscard]] Completions completions(
    const FileModel &file, Offset offset, const std::vector<SharedObject> &shared);

/// Adds what `others` asks for, from a part that is loaded together with the file.
void addOthers(Completions &completions, const FilePart &part);

} // namespace kevra::script
