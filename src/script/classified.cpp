// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/classified.h"

#include "script/builtins.h"
#include "script/layout.h"

#include <algorithm>
#include <optional>

namespace kevra::script {
namespace {

[[nodiscard]] WordClass classOf(SymbolKind kind, bool member)
{
    switch (kind) {
    case SymbolKind::Constant:
        return WordClass::Constant;
    case SymbolKind::Parameter:
        return WordClass::Parameter;
    case SymbolKind::Sub:
    case SymbolKind::Function:
        return member ? WordClass::Method : WordClass::Function;
    case SymbolKind::Property:
        return WordClass::Property;
    case SymbolKind::Class:
        return WordClass::Class;
    default:
        return WordClass::Variable;
    }
}

struct NameClass {
    WordClass what{};
    bool declares = false;
    bool provided = false;
};

[[nodiscard]] NameClass classOfSymbol(const Symbols &symbols, SymbolId id, bool declares)
{
    const auto &symbol = symbols.symbol(id);
    const bool member = symbol.scope != 0 && symbols.scope(symbol.scope).kind == ScopeKind::Class;
    return {classOf(symbol.kind, member), declares, false};
}

[[nodiscard]] NameClass classOfUse(const Model &model, NodeId name)
{
    if (const auto symbol = model.symbols.symbolAt(name))
        return classOfSymbol(model.symbols, symbol, false);
    const auto spelled = model.spelling(name);
    if (builtinFunction(spelled))
        return {WordClass::Function, false, true};
    return {
        builtinConstant(spelled) ? WordClass::Constant : WordClass::Variable, false, model.isProvided(name)};
}

[[nodiscard]] NameClass classOfMember(const Model &model, NodeId member)
{
    const auto *type = objectType(model.types.of(model.tree.child(member, 0)).id);
    const auto *known = type ? memberOf(*type, model.spelling(member)) : nullptr;
    const bool method = known && known->kind == MemberKind::Method;
    return {method ? WordClass::Method : WordClass::Property, false, known != nullptr};
}

/// The class of each name, by its start.
class NameClasses {
public:
    explicit NameClasses(const FilePart &part)
        : m_part(part)
    {
        const auto &model = part.model;
        for (SymbolId id = 1; id < model.symbols.symbolCount(); ++id) {
            if (model.symbols.symbol(id).kind != SymbolKind::Implicit)
                m_found.push_back({model.declarationRange(id).start, classOfSymbol(model.symbols, id, true)});
        }
        for (NodeId id = 1; id < model.tree.size(); ++id)
            addUse(id);
        std::ranges::stable_sort(m_found, {}, &Entry::start);
    }

    [[nodiscard]] std::optional<NameClass> at(Offset start) const
    {
        const auto found = std::ranges::lower_bound(m_found, start, {}, &Entry::start);
        return found != m_found.end() && found->start == start ? std::optional(found->what) : std::nullopt;
    }

private:
    struct Entry {
        Offset start = 0;
        NameClass what;
    };

    void addUse(NodeId id)
    {
        const auto &model = m_part.model;
        const auto start = [&] { return m_part.script.nameRange(id).start; };
        if (model.kind(id) == NodeKind::Name)
            m_found.push_back({start(), classOfUse(model, id)});
        else if (model.kind(id) == NodeKind::Member)
            m_found.push_back({start(), classOfMember(model, id)});
        else if (model.kind(id) == NodeKind::New)
            m_found.push_back({start(), {WordClass::Class, false, false}});
    }

    const FilePart &m_part;
    std::vector<Entry> m_found;
};

[[nodiscard]] std::optional<WordClass> classOfSign(TokenKind kind)
{
    switch (kind) {
    case TokenKind::Number:
    case TokenKind::Date:
        return WordClass::Number;
    case TokenKind::String:
        return WordClass::String;
    default:
        return kind >= TokenKind::Equal && kind <= TokenKind::Ampersand ? std::optional(WordClass::Operator)
                                                                        : std::nullopt;
    }
}

void appendPart(const FilePart &part, std::vector<ClassifiedWord> &words)
{
    const Layout layout(part.script.text, part.island.pieces);
    const NameClasses names(part);
    const std::span<const Token> tokens = layout.tokens();
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const TextRange range{tokens[i].start, tokens[i].end};
        if (tokens[i].kind != TokenKind::Name) {
            if (const auto sign = classOfSign(tokens[i].kind))
                words.push_back({range, *sign, false, false});
        } else if (const auto name = names.at(range.start)) {
            words.push_back({range, name->what, name->declares, name->provided});
        } else if (tokens[i].keyword() != Keyword::None) {
            words.push_back({range, WordClass::Keyword, false, false});
        }
    }
    for (const auto &comment : layout.comments())
        words.push_back({comment, WordClass::Comment, false, false});
}

} // namespace

std::vector<ClassifiedWord> classified(const FileModel &file)
{
    std::vector<ClassifiedWord> words;
    for (const auto &part : file.parts())
        appendPart(*part, words);
    std::ranges::stable_sort(words, {}, [](const ClassifiedWord &word) { return word.range.start; });
    Offset end = 0;
    std::erase_if(words, [&](const ClassifiedWord &word) {
        const bool overlaps = word.range.start < end || word.range.empty();
        end = std::max(end, word.range.end);
        return overlaps;
    });
    return words;
}

} // namespace kevra::script
