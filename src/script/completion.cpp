// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/completion.h"

#include "script/builtins.h"
#include "script/characters.h"
#include "script/describe.h"
#include "script/lexer.h"
#include "script/outline.h"

#include <algorithm>
#include <array>
#include <set>

namespace kevra::script {
namespace {

[[nodiscard]] bool isNameByte(char c)
{
    return is(static_cast<unsigned char>(c), byte_class::Name);
}

[[nodiscard]] CompletionKind kindOf(SymbolKind kind, bool inClass)
{
    switch (kind) {
    case SymbolKind::Constant:
        return CompletionKind::Constant;
    case SymbolKind::Sub:
    case SymbolKind::Function:
        return inClass ? CompletionKind::Method : CompletionKind::Function;
    case SymbolKind::Property:
        return CompletionKind::Property;
    case SymbolKind::Class:
        return CompletionKind::Class;
    default:
        return CompletionKind::Variable;
    }
}

/// The words before the position.
struct Surrounding {
    Keyword before = Keyword::None; ///< the keyword before it
    bool afterDot = false;
    bool inLiteral = false;
    std::optional<Offset> progId; ///< in CreateObject("..."): where the string's text begins
};

[[nodiscard]] Surrounding surroundingOf(const FilePart &part, TextRange word)
{
    Surrounding found;
    NameTable names;
    std::vector<TextRange> comments;
    Lexer lexer(part.script.text, part.island.pieces, names, comments);
    std::array<Token, 3> last; // the most recent first
    auto token = lexer.next();
    for (; token.kind != TokenKind::End && Offset{token.start} < word.start; token = lexer.next())
        last = {token, last[0], last[1]};
    const auto &before = last[0];
    const bool inside = before.kind != TokenKind::End && Offset{before.end} > word.start;
    const bool literal = before.kind == TokenKind::String || before.kind == TokenKind::Date;
    found.inLiteral = (inside && before.kind != TokenKind::NewLine)
        || (literal && before.unclosed && Offset{before.end} >= word.start)
        || (Offset{token.start} == word.start && token.kind == TokenKind::Number);
    for (const auto &comment : comments)
        found.inLiteral = found.inLiteral || (comment.start < word.start && word.start <= comment.end);
    const bool inString = before.kind == TokenKind::String
        && (before.unclosed ? word.end <= Offset{before.end} : word.end < Offset{before.end});
    if (inString && last[1].kind == TokenKind::LeftParenthesis && last[2].kind == TokenKind::Name
        && folded(names.spelling(last[2].name)) == "createobject")
        found.progId = Offset{before.start} + 1;
    found.afterDot = before.kind == TokenKind::Dot;
    found.before = before.kind == TokenKind::Name ? before.keyword() : Keyword::None;
    return found;
}

[[nodiscard]] bool declaresName(Keyword before)
{
    constexpr std::array words{Keyword::Dim, Keyword::Const, Keyword::Sub, Keyword::Function, Keyword::Class,
        Keyword::Private, Keyword::Public, Keyword::Let, Keyword::Get};
    return std::ranges::find(words, before) != words.end();
}

class Collector {
public:
    explicit Collector(std::vector<Completion> &items)
        : m_items(items)
    {
        for (const auto &item : items)
            m_seen.insert(folded(item.name));
    }

    void add(std::string_view name, CompletionKind kind, std::string detail, std::string_view text)
    {
        // Of equal names the nearest is meant.
        if (!name.empty() && m_seen.insert(folded(name)).second)
            m_items.push_back({std::string(name), kind, std::move(detail), text});
    }

    void addScope(const Model &model, ScopeId scope)
    {
        for (auto id = model.symbols.scope(scope).firstSymbol; id != 0;
             id = model.symbols.symbol(id).nextInScope)
            add(declaredName(model, id), kindOf(model.symbols.symbol(id).kind, false), signatureOf(model, id),
                {});
    }

    /// Members of a class of the script; the private ones only through Me.
    void addOwnMembers(const Model &model, SymbolId ofClass, bool throughMe)
    {
        const auto scope = model.symbols.symbol(ofClass).ownScope;
        for (auto id = model.symbols.scope(scope).firstSymbol; id != 0;
             id = model.symbols.symbol(id).nextInScope) {
            const auto &symbol = model.symbols.symbol(id);
            const auto declaring
                = symbol.kind == SymbolKind::Variable ? model.symbols.parent(symbol.node) : symbol.node;
            if (throughMe || !model.tree[declaring].has(flag::Private))
                add(declaredName(model, id), kindOf(symbol.kind, true), signatureOf(model, id), {});
        }
    }

    void addMembers(const Model &model, Type type)
    {
        if (type.ownClass != 0)
            addOwnMembers(model, type.ownClass, false);
        const auto *object = objectType(type.id);
        for (const auto &member : object ? object->members : std::span<const Member>())
            add(member.name,
                member.kind == MemberKind::Method ? CompletionKind::Method : CompletionKind::Property,
                memberText(member), member.description);
    }

    void addLanguage(const Model &model)
    {
        for (const auto &object : model.surroundings.objects)
            add(object.name, CompletionKind::Object, std::string(object.progId), {});
        for (const auto &function : builtinFunctions())
            add(function.name, CompletionKind::Function,
                std::string(function.name) + '(' + std::string(function.parameters.list()) + ')',
                function.description);
        for (const auto &constant : builtinConstants())
            add(constant.name, CompletionKind::Constant, std::string(constant.value), {});
        constexpr std::array<std::string_view, 7> intrinsics{
            "Application", "Err", "Request", "Response", "Server", "Session", "WScript"};
        for (const auto name : intrinsics) {
            const auto type = model.types.ofProvided(name);
            if (type && type->id != TypeId::Unknown)
                add(name, CompletionKind::Object, {}, {});
        }
        const auto addKeyword = [&](Keyword word) {
            add(model.spelling(static_cast<NameId>(word)), CompletionKind::Keyword, {}, {});
        };
        for (auto word = Keyword::And; word < firstFreeKeyword;
             word = static_cast<Keyword>(static_cast<int>(word) + 1))
            addKeyword(word);
        for (const auto word : {Keyword::Default, Keyword::Erase, Keyword::Error, Keyword::Explicit,
                 Keyword::Get, Keyword::Preserve, Keyword::Property, Keyword::Step})
            addKeyword(word);
    }

    void addProgIds()
    {
        for (const auto &progId : progIds()) {
            const auto *object = objectType(progId.type);
            // Only GetObject takes this one.
            if (object && progId.type != TypeId::WmiServices)
                add(progId.name, CompletionKind::Class, std::string(object->name), {});
        }
    }

    void addClasses(const Model &model)
    {
        for (SymbolId id = 1; id < model.symbols.symbolCount(); ++id) {
            if (model.symbols.symbol(id).kind == SymbolKind::Class)
                add(declaredName(model, id), CompletionKind::Class, {}, {});
        }
        add("RegExp", CompletionKind::Class, {}, {});
    }

private:
    std::vector<Completion> &m_items;
    std::set<std::string> m_seen;
};

/// The innermost class or procedure around the position; 0 outside.
[[nodiscard]] ScopeId scopeAt(const Model &model, Offset offset)
{
    ScopeId found = 0;
    for (ScopeId id = 1; id < model.symbols.scopeCount(); ++id) {
        const auto range = model.tree[model.symbols.scope(id).node].range();
        // Inner scopes follow outer ones.
        if (range.start <= offset && offset <= range.end)
            found = id;
    }
    return found;
}

/// The object before the dot. A name is assumed after the dot, since without one there is no expression.
/// Returns the name of its class if another file may declare it.
std::string addMembersAfterDot(
    const FileModel &file, TextRange word, const std::vector<SharedObject> &shared, Collector &collector)
{
    constexpr std::string_view placeholder = "member";
    std::string text(file.text().substr(0, static_cast<std::size_t>(word.start)));
    text += placeholder;
    auto rest = file.text().substr(static_cast<std::size_t>(word.end));
    while (!rest.empty() && isNameByte(rest.front()))
        rest.remove_prefix(1);
    text += rest;
    const FileModel completed(text, file.kind(), shared);
    const auto *part = completed.partAt(word.start);
    if (!part)
        return {};
    const auto end = static_cast<std::uint32_t>(word.start) + placeholder.size();
    const auto &tree = part->script.tree;
    for (NodeId id = 1; id < tree.size(); ++id) {
        if (tree[id].kind != NodeKind::Member || tree[id].end != end)
            continue;
        const auto object = tree.child(id, 0);
        if (part->model.kind(object) != NodeKind::Me) {
            const auto type = part->model.types.of(object);
            collector.addMembers(part->model, type);
            return std::string(part->model.spelling(type.otherClass));
        }
        const auto scope = scopeAt(part->model, word.start);
        const auto &inner = part->model.symbols.scope(scope);
        const auto owner = inner.kind == ScopeKind::Class ? scope : inner.parent;
        collector.addOwnMembers(part->model, part->model.symbols.scope(owner).owner, true);
        return {};
    }
    return {};
}

[[nodiscard]] TextRange wordAround(std::string_view text, Offset offset)
{
    auto start = static_cast<std::size_t>(offset);
    while (start > 0 && isNameByte(text[start - 1]))
        --start;
    return {static_cast<Offset>(start), offset};
}

[[nodiscard]] bool startsLine(std::string_view text, Offset offset)
{
    const auto before = text.substr(0, static_cast<std::size_t>(offset)).find_last_not_of(" \t");
    return before == text.npos || text[before] == '\n' || text[before] == '\r';
}

} // namespace

Completions completions(const FileModel &file, Offset offset, const std::vector<SharedObject> &shared)
{
    Completions result;
    result.word = wordAround(file.text(), offset);
    const auto *part = file.partAt(offset);
    if (!part)
        return result;
    const auto around = surroundingOf(*part, result.word);
    Collector collector(result.items);
    if (around.progId) {
        result.word.start = *around.progId;
        collector.addProgIds();
        return result;
    }
    if (around.inLiteral || (declaresName(around.before) && !around.afterDot))
        return result;
    if (around.afterDot) {
        result.ofClass = addMembersAfterDot(file, result.word, shared, collector);
        result.others = result.ofClass.empty() ? Completions::Others::Nothing : Completions::Others::Members;
        return result;
    }
    if (around.before == Keyword::New) {
        collector.addClasses(part->model);
        result.others = Completions::Others::Classes;
        return result;
    }
    result.others = Completions::Others::Names;
    result.startsStatement = startsLine(file.text(), result.word.start);
    for (auto scope = scopeAt(part->model, offset); scope != 0;
         scope = part->model.symbols.scope(scope).parent)
        collector.addScope(part->model, scope);
    collector.addScope(part->model, 0);
    collector.addLanguage(part->model);
    return result;
}

void addOthers(Completions &completions, const FilePart &part)
{
    const auto &symbols = part.model.symbols;
    Collector collector(completions.items);
    switch (completions.others) {
    case Completions::Others::Names:
        return collector.addScope(part.model, 0);
    case Completions::Others::Classes:
        return collector.addClasses(part.model);
    case Completions::Others::Members:
        if (const auto owner = symbols.declaredIn(0, part.script.names.find(completions.ofClass));
            owner != 0 && symbols.symbol(owner).kind == SymbolKind::Class)
            collector.addOwnMembers(part.model, owner, false);
        return;
    case Completions::Others::Nothing:
        return;
    }
}

} // namespace kevra::script
