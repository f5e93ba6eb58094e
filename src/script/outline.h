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

/// Ascending: global declarations and members of classes. If a file has several jobs, each is an item.
[[nodiscard]] std::vector<OutlineItem> outline(const FileModel &file);

/// "(a, ByVal b)" of a procedure's declaration.
[[nodiscard]] std::string parameterList(const ParsedScript &script, NodeId procedure);

} // namespace kevra::script
