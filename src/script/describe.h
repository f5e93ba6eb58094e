// SPDX-License-Identifier: GPL-3.0-or-later
// What stands under the pointer, and what the call being written takes.
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
    std::string signature; ///< one line of VBScript, or nearly
    std::string text; ///< sentences, perhaps none
};

/// Of the script's own names, of built-ins, and of members of objects whose class is known.
[[nodiscard]] std::optional<Description> describe(const FileModel &file, Offset offset);

struct CallHelp {
    std::string signature;
    std::string text;
    std::vector<TextRange> parameters; ///< in the signature
    std::size_t active = 0; ///< index of the parameter at the place; may lie beyond the last
};

/// Describes the name that ends at a place and that the file itself does not declare.
using DescribeElsewhere = std::function<std::optional<Description>(Offset)>;

/// Of the innermost call around the place that is still being written.
[[nodiscard]] std::optional<CallHelp> callHelp(
    const FileModel &file, Offset offset, const DescribeElsewhere &elsewhere);

/// How a symbol is declared, on one line.
[[nodiscard]] std::string signatureOf(const Model &model, SymbolId symbol);
/// The comment lines right above a declaration, without their marks.
[[nodiscard]] std::string commentAbove(const ParsedScript &script, Offset declaration);

} // namespace kevra::script
