// SPDX-License-Identifier: GPL-3.0-or-later
// What could be written at a place.
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
    std::string_view text; ///< sentences, perhaps none
};

struct Completions {
    TextRange word; ///< what of it is written already
    std::vector<Completion> items;
    bool startsStatement = false; ///< nothing but blanks before it on its line
    bool anyName = false; ///< whatever name is known here, so those of files loaded beside this one as well
};

/// Names that can be seen from the place, nearest scope first; after a dot the members of the object, if its
/// class is known; in CreateObject("...") the known ProgIDs. None in other strings, comments, numbers and
/// where a name is being declared.
[[nodiscard]] Completions completions(const FileModel &file, Offset offset);

/// Adds the global names of a part that is loaded beside the file.
void addGlobals(Completions &completions, const FilePart &part);

} // namespace kevra::script
