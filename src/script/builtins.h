// SPDX-License-Identifier: GPL-3.0-or-later
// What VBScript brings along: its functions and constants, as tables. Descriptions are for signature help.
#pragma once

#include "script/host_objects.h"

#include <span>
#include <string_view>

namespace kevra::script {

struct BuiltinFunction {
    std::string_view name; ///< as it is usually written
    Parameters parameters;
    TypeId result = TypeId::Value;
    std::string_view description;
};

struct BuiltinConstant {
    std::string_view name;
    std::string_view value; ///< as VBScript would write it
};

/// Both in ascending order of their names, in lower case.
[[nodiscard]] std::span<const BuiltinFunction> builtinFunctions();
[[nodiscard]] std::span<const BuiltinConstant> builtinConstants();

/// Letters in either case; null where VBScript has no such thing.
[[nodiscard]] const BuiltinFunction *builtinFunction(std::string_view name);
[[nodiscard]] const BuiltinConstant *builtinConstant(std::string_view name);

} // namespace kevra::script
