// SPDX-License-Identifier: GPL-3.0-or-later
// What VBScript brings along: its functions and constants, as tables. Descriptions are for signature help.
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

/// Both in ascending order of their names, in lower case.
[[nodiscard]] std::span<const BuiltinFunction> builtinFunctions();
[[nodiscard]] std::span<const BuiltinConstant> builtinConstants();

/// Letters in either case; null where VBScript has no such thing.
[[nodiscard]] const BuiltinFunction *builtinFunction(std::string_view name);
[[nodiscard]] const BuiltinConstant *builtinConstant(std::string_view name);

/// Which names of a script VBScript brings along, without comparing letters for each use.
class BuiltinNames {
public:
    explicit BuiltinNames(const NameTable &names);

    /// Null where the name is none of them, as builtinFunction() and builtinConstant().
    [[nodiscard]] const BuiltinFunction *function(NameId name) const;
    [[nodiscard]] const BuiltinConstant *constant(NameId name) const;
    /// Also the objects that every script has.
    [[nodiscard]] bool contains(NameId name) const { return m_rows[static_cast<std::size_t>(name)] != 0; }

private:
    void add(const NameTable &names, std::string_view name, std::size_t row);

    std::vector<std::uint16_t> m_rows; ///< by name; 0: none, then functions, constants and objects in turn
};

} // namespace kevra::script
