// SPDX-License-Identifier: GPL-3.0-or-later
// Hover and signature help: describes a name, and the parameters of a call being written.
#pragma once

#include "script/file_model.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kevra::script {

struct Description {
    TextRange range; ///< of the name
    std::string signature; ///< one line, close to VBScript
    std::string text; ///< a description; may be empty
};

/// For the script's own names, built-ins, and members of objects whose class is known.
[[nodiscard]] std::optional<Description> describe(const FileModel &file, Offset offset);

struct CallHelp {
    std::string signature;
    std::string text;
    std::vector<TextRange> parameters; ///< in the signature
    std::size_t active = 0; ///< index of the parameter at the position; may be past the last
};

/// Describes a name that the file itself does not declare, given the position where it ends.
using DescribeElsewhere = std::function<std::optional<Description>(Offset)>;

/// For the innermost unfinished call around the position. `shared`: the objects of files loaded together with
/// this one.
[[nodiscard]] std::optional<CallHelp> callHelp(const FileModel &file, Offset offset,
    const std::vector<SharedObject> &shared, const DescribeElsewhere &elsewhere);

/// The name as its declaration spells it, without brackets; the first spelling where nothing declares it.
[[nodiscard]] std::string_view declaredName(const Model &model, SymbolId symbol);
/// A member's name, with its parameters if it has any or is a method.
[[nodiscard]] std::string memberText(const Member &member);
/// How a symbol is declared, on one line.
[[nodiscard]] std::string signatureOf(const Model &model, SymbolId symbol);
/// The comment lines right above a declaration, without their marks.
[[nodiscard]] std::string commentAbove(const ParsedScript &script, Offset declaration);

} // namespace kevra::script
