// SPDX-License-Identifier: GPL-3.0-or-later
// The declarations of a file as a tree, for lists of symbols.
#pragma once

#include "script/file_model.h"

#include <string>
#include <vector>

namespace kevra::script {

enum class OutlineKind : std::uint8_t { Job, Class, Sub, Function, Method, Property, Variable, Constant };

struct OutlineItem {
    OutlineKind kind{};
    std::string name;
    std::string detail; ///< a procedure's parameters in parentheses
    TextRange range; ///< the whole declaration
    TextRange nameRange; ///< lies in `range`
    std::vector<OutlineItem> children;
};

/// Ascending. What is known in the whole file and the members of classes; the jobs of a file with several
/// are items of their own.
[[nodiscard]] std::vector<OutlineItem> outline(const FileModel &file);

/// "(a, ByVal b)" of a procedure's declaration.
[[nodiscard]] std::string parameterList(const ParsedScript &script, NodeId procedure);

} // namespace kevra::script
