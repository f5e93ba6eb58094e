// SPDX-License-Identifier: GPL-3.0-or-later
// The functions and constants built into VBScript, as tables. Descriptions are for signature help.
#pragma once

#include "script/host_objects.h"
#include "script/names.h"

#include <span>
#include <string_view>
#include <vector>

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

/// Both sorted by name in lower case.
[[nodiscard]] std::span<const BuiltinFunction> builtinFunctions();
[[nodiscard]] std::span<const BuiltinConstant> builtinConstants();

/// Ignoring case; null if VBScript has no such name.
[[nodiscard]] const BuiltinFunction *builtinFunction(std::string_view name);
[[nodiscard]] const BuiltinConstant *builtinConstant(std::string_view name);

/// The built-ins among a script's names, looked up by id instead of by spelling.
class BuiltinNames {
public:
    explicit BuiltinNames(const NameTable &names);

    /// As builtinFunction() and builtinConstant(): null if the name is none.
    [[nodiscard]] const BuiltinFunction *function(NameId name) const;
    [[nodiscard]] const BuiltinConstant *constant(NameId name) const;
    /// Also the objects that every script has.
    [[nodiscard]] bool contains(NameId name) const { return m_rows[static_cast<std::size_t>(name)] != 0; }

private:
    void add(const NameTable &names, std::string_view name, std::size_t row);

    std::vector<std::uint16_t> m_rows; ///< by name; 0: none, then functions, constants and objects in turn
};

} // namespace kevra::script
