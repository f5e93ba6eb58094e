// SPDX-License-Identifier: GPL-3.0-or-later
// Infers the class of an expression's object, from CreateObject, New and Set through variables that only ever
// hold one class. What is not certain is Unknown.
#pragma once

#include "script/host_objects.h"
#include "script/surroundings.h"
#include "script/symbols.h"

#include <map>
#include <optional>
#include <vector>

namespace kevra::script {

struct Type {
    TypeId id = TypeId::Unknown;
    SymbolId ownClass = 0; ///< a class of the script; id is Object then
    NameId otherClass = NameId::None; ///< a class that another file may declare; id is Object then

    friend bool operator==(Type, Type) = default;
};

class Types {
public:
    /// The arguments must outlive this.
    Types(const ParsedScript &script, const Symbols &symbols, const Surroundings &surroundings);

    [[nodiscard]] Type of(NodeId expression) const { return typeOf(expression, 0); }
    [[nodiscard]] Type ofSymbol(SymbolId symbol) const;
    /// For an object that exists without being created; nothing for other names.
    [[nodiscard]] std::optional<Type> ofProvided(std::string_view name) const;

    /// What the global variables hold that only ever hold one class.
    [[nodiscard]] std::vector<SharedObject> sharedObjects() const;

    /// Whether the expression is a CreateObject, GetObject or New.
    [[nodiscard]] bool createsObject(NodeId expression) const;
    /// The literal ProgID of a CreateObject; empty if there is none.
    [[nodiscard]] std::string_view createdProgId(NodeId expression) const;
    /// Whether values of this type, a known class or one of the script, have a default member.
    [[nodiscard]] bool hasDefaultMember(Type type) const;

private:
    enum class State : std::uint8_t { NotLooked, Looking, Known };
    struct Entry {
        Type type;
        State state = State::NotLooked;
    };

    [[nodiscard]] Type typeOf(NodeId expression, unsigned links) const;
    [[nodiscard]] Type ofName(NodeId name) const;
    [[nodiscard]] Type ofMember(NodeId member, unsigned links) const;
    [[nodiscard]] Type ofApply(NodeId apply, unsigned links) const;
    [[nodiscard]] Type ofNew(NameId className) const;
    [[nodiscard]] Type ofShared(NameId name) const;
    [[nodiscard]] Type computed(SymbolId symbol) const;
    [[nodiscard]] std::optional<Type> assignedBy(const Reference &use) const;
    [[nodiscard]] bool mayBeChangedByCall(const Reference &argument) const;
    [[nodiscard]] SymbolId parameterFor(SymbolId procedure, NodeId call, NodeId argument) const;
    [[nodiscard]] bool isWritten(SymbolId parameter) const;
    [[nodiscard]] std::string_view createCall(NodeId expression) const;
    [[nodiscard]] std::string_view spelling(NodeId id) const;

    const ParsedScript &m_script;
    const Symbols &m_symbols;
    const Surroundings &m_surroundings;
    std::map<NameId, Type> m_shared; ///< global variables of other files
    mutable std::vector<Entry> m_entries; ///< by symbol
    mutable unsigned m_variablesInARow = 0;
};

} // namespace kevra::script
