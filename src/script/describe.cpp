// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/describe.h"

#include "script/builtins.h"
#include "script/lexer.h"
#include "script/outline.h"
#include "script/references.h"

#include <algorithm>

namespace kevra::script {
namespace {

[[nodiscard]] std::string joined(std::string_view name, std::string_view parameters)
{
    return std::string(name) + '(' + std::string(parameters) + ')';
}

[[nodiscard]] std::string typeText(const Model &model, SymbolId symbol)
{
    const auto type = model.types.ofSymbol(symbol);
    const auto *object = objectType(type.id);
    if (type.ownClass != 0)
        return " ' " + std::string(model.nameOf(type.ownClass));
    return object ? " ' " + std::string(object->name) : std::string();
}

[[nodiscard]] std::string procedureText(const Model &model, SymbolId symbol)
{
    const auto node = model.symbols.symbol(symbol).node;
    const auto kind = model.kind(node);
    const std::string_view word = kind == NodeKind::Sub ? "Sub "
        : kind == NodeKind::Function                    ? "Function "
        : kind == NodeKind::PropertyGet                 ? "Property Get "
        : kind == NodeKind::PropertyLet                 ? "Property Let "
                                                        : "Property Set ";
    return std::string(word) + std::string(declaredName(model, symbol)) + parameterList(model.script, node);
}

struct KnownMember {
    const ObjectType *type = nullptr;
    const Member *member = nullptr;
};

[[nodiscard]] KnownMember knownMember(const Model &model, NodeId node)
{
    const auto *type = objectType(model.types.of(model.tree.child(node, 0)).id);
    return {type, type ? memberOf(*type, model.spelling(node)) : nullptr};
}

[[nodiscard]] std::string memberText(const KnownMember &found)
{
    return std::string(found.type->name) + '.' + script::memberText(*found.member);
}

[[nodiscard]] std::string memberNote(const Member &member)
{
    const auto *result = objectType(member.result);
    std::string text(member.description);
    if (member.kind == MemberKind::ReadOnly)
        text += text.empty() ? "Read only." : " Read only.";
    if (result)
        (text += text.empty() ? "Gives " : " Gives ") += std::string(result->name) + '.';
    return text;
}

/// Signature and description of what a name refers to.
[[nodiscard]] std::optional<Description> descriptionOf(const FilePart &part, NodeId node)
{
    const auto &model = part.model;
    const auto range = part.script.nameRange(node);
    if (const auto symbol = symbolOf(model, node)) {
        const auto declaration = model.symbols.symbol(symbol).node;
        return Description{range, signatureOf(model, symbol),
            commentAbove(part.script, model.tree[declaration].range().start)};
    }
    if (model.kind(node) == NodeKind::Member) {
        const auto found = knownMember(model, node);
        return found.member ? std::optional(Description{range, memberText(found), memberNote(*found.member)})
                            : std::nullopt;
    }
    if (model.kind(node) != NodeKind::Name)
        return std::nullopt;
    const auto name = model.spelling(node);
    if (const auto *function = builtinFunction(name))
        return Description{
            range, joined(function->name, function->parameters.list()), std::string(function->description)};
    if (const auto *constant = builtinConstant(name))
        return Description{
            range, "Const " + std::string(constant->name) + " = " + std::string(constant->value), {}};
    const auto provided = model.types.ofProvided(name);
    const auto *object = provided ? objectType(provided->id) : nullptr;
    return object ? std::optional(Description{range, std::string(object->name), {}}) : std::nullopt;
}

/// The parameters of a signature: the text in its outer parentheses, split at commas.
[[nodiscard]] std::vector<TextRange> parametersOf(std::string_view signature)
{
    std::vector<TextRange> found;
    const auto open = signature.find('(');
    const auto close = signature.rfind(')');
    if (open == signature.npos || close == signature.npos)
        return found;
    for (auto start = open + 1; start < close;) {
        auto end = start;
        for (int depth = 0; end < close && (depth > 0 || signature[end] != ','); ++end)
            depth += signature[end] == '(' ? 1 : signature[end] == ')' ? -1 : 0;
        while (start < end && signature[start] == ' ')
            ++start;
        found.push_back({static_cast<Offset>(start), static_cast<Offset>(end)});
        start = end + 1;
    }
    return found;
}

struct OpenCall {
    Offset calleeEnd = 0;
    std::size_t commas = 0;
};

[[nodiscard]] bool isCallee(const Token &token)
{
    return token.kind == TokenKind::Name && !isReserved(token.keyword());
}

[[nodiscard]] bool declaresProcedure(Keyword first)
{
    return first == Keyword::Sub || first == Keyword::Function || first == Keyword::Property
        || first == Keyword::Public || first == Keyword::Private;
}

/// Tracks the open calls of a statement up to the position.
class CallFinder {
public:
    void take(const Token &token, bool blankBefore)
    {
        switch (token.kind) {
        case TokenKind::NewLine:
        case TokenKind::Colon:
        case TokenKind::UnitEnd:
        case TokenKind::OutputStart:
            m_calls.clear();
            m_statement = State::Start;
            m_before = {};
            m_declares = false;
            return;
        case TokenKind::LeftParenthesis:
            if (m_statement == State::Callee && !(blankBefore && isCallee(m_before)))
                m_statement = State::Inside;
            else if (m_statement == State::Callee)
                startStatementCall();
            m_calls.push_back({isCallee(m_before) ? Offset{m_before.end} : 0, 0});
            break;
        case TokenKind::RightParenthesis:
            if (!m_calls.empty())
                m_calls.pop_back();
            break;
        case TokenKind::Comma:
            if (m_statement == State::Callee)
                startStatementCall();
            if (!m_calls.empty())
                ++m_calls.back().commas;
            break;
        default:
            word(token, blankBefore);
        }
        m_before = token;
    }

    /// `blankBefore`: there are blanks between the last word and the position.
    [[nodiscard]] std::optional<OpenCall> open(bool blankBefore)
    {
        if (m_statement == State::Callee && blankBefore)
            startStatementCall();
        for (auto call = m_calls.rbegin(); call != m_calls.rend() && !m_declares; ++call) {
            if (call->calleeEnd != 0)
                return *call;
        }
        return std::nullopt;
    }

private:
    enum class State { Start, Callee, Inside };

    void word(const Token &token, bool blankBefore)
    {
        if (m_statement == State::Start) {
            const bool starts = isCallee(token) || token.kind == TokenKind::Dot;
            m_statement = starts ? State::Callee : State::Inside;
            const auto keyword = token.keyword();
            if (keyword == Keyword::Else || keyword == Keyword::Then)
                m_statement = State::Start;
            m_declares = declaresProcedure(keyword);
        } else if (m_statement == State::Callee && token.kind != TokenKind::Dot
            && m_before.kind != TokenKind::Dot) {
            if (token.kind == TokenKind::Equal || !blankBefore)
                m_statement = State::Inside;
            else
                startStatementCall();
        } else if (token.kind == TokenKind::Name
            && (token.keyword() == Keyword::Then || token.keyword() == Keyword::Else)) {
            m_calls.clear();
            m_statement = State::Start;
        }
    }

    void startStatementCall()
    {
        if (isCallee(m_before))
            m_calls.push_back({Offset{m_before.end}, 0});
        m_statement = State::Inside;
    }

    std::vector<OpenCall> m_calls;
    State m_statement = State::Start;
    bool m_declares = false; ///< in a procedure declaration: the parentheses hold parameters
    Token m_before{};
};

[[nodiscard]] std::optional<OpenCall> openCall(const FilePart &part, Offset offset)
{
    NameTable names;
    std::vector<TextRange> comments;
    Lexer lexer(part.script.text, part.island.pieces, names, comments);
    CallFinder finder;
    Offset end = 0;
    for (auto token = lexer.next(); token.kind != TokenKind::End; token = lexer.next()) {
        if (Offset{token.start} >= offset)
            break;
        finder.take(token, Offset{token.start} > end);
        end = token.end;
        if (end > offset)
            break;
    }
    if (!comments.empty() && comments.back().start < offset && offset <= comments.back().end)
        return std::nullopt;
    return finder.open(end < offset);
}

/// The text cut off after the callee: the unfinished arguments would keep it from being parsed.
[[nodiscard]] std::optional<Description> descriptionOfCallee(
    const FileModel &file, Offset calleeEnd, const std::vector<SharedObject> &shared)
{
    const auto *part = file.partAt(calleeEnd);
    if (const auto node = part ? nameNodeAt(*part, calleeEnd) : 0) {
        if (auto found = descriptionOf(*part, node))
            return found;
    }
    const auto text = file.text();
    const auto from = static_cast<std::size_t>(calleeEnd);
    const auto to = std::min(text.find_first_of("\r\n", from), text.size());
    const std::string cut = std::string(text.substr(0, from)) + std::string(text.substr(to));
    const FileModel shorter(cut, file.kind(), shared);
    return describe(shorter, calleeEnd);
}

} // namespace

std::string memberText(const Member &member)
{
    return member.kind == MemberKind::Method || member.parameters.most() > 0
        ? joined(member.name, member.parameters.list())
        : std::string(member.name);
}

std::string_view declaredName(const Model &model, SymbolId id)
{
    if (model.symbols.symbol(id).kind == SymbolKind::Implicit)
        return model.nameOf(id);
    const auto text = model.script.textOf(model.declarationRange(id));
    return text.starts_with('[') ? model.nameOf(id) : text;
}

std::string signatureOf(const Model &model, SymbolId id)
{
    const auto &symbol = model.symbols.symbol(id);
    switch (symbol.kind) {
    case SymbolKind::Sub:
    case SymbolKind::Function:
    case SymbolKind::Property:
        return procedureText(model, id);
    case SymbolKind::Class:
        return "Class " + std::string(declaredName(model, id));
    case SymbolKind::Constant:
        return "Const " + std::string(model.script.textOf(symbol.node));
    case SymbolKind::Parameter:
        return std::string(model.script.textOf(symbol.node)) + " ' parameter";
    case SymbolKind::Variable:
        return "Dim " + std::string(declaredName(model, id)) + typeText(model, id);
    case SymbolKind::Implicit:
        break;
    }
    return std::string(model.nameOf(id)) + " ' not declared";
}

std::string commentAbove(const ParsedScript &script, Offset declaration)
{
    std::string text;
    auto below = script.text.rfind('\n', static_cast<std::size_t>(declaration));
    auto comment = std::ranges::upper_bound(
        script.comments, declaration, {}, [](TextRange range) { return range.start; });
    while (comment != script.comments.begin() && below != script.text.npos) {
        --comment;
        const auto start = static_cast<std::size_t>(comment->start);
        const auto lineStart = script.text.find_last_of("\r\n", start) + 1;
        const bool alone = script.text.substr(lineStart, start - lineStart).find_first_not_of(" \t")
            == std::string_view::npos;
        const auto after = script.text.find_first_not_of(" \t\r", static_cast<std::size_t>(comment->end));
        if (!alone || after != below)
            break;
        auto line = script.textOf(*comment);
        line.remove_prefix(line.starts_with('\'') ? 1 : std::min<std::size_t>(3, line.size()));
        line.remove_prefix(std::min(line.find_first_not_of(" \t'"), line.size()));
        text = std::string(line) + (text.empty() ? "" : "\n") + text;
        below = lineStart == 0 ? script.text.npos : lineStart - 1;
    }
    return text;
}

std::optional<Description> describe(const FileModel &file, Offset offset)
{
    const auto *part = file.partAt(offset);
    const auto node = part ? nameNodeAt(*part, offset) : 0;
    return node != 0 ? descriptionOf(*part, node) : std::nullopt;
}

std::optional<CallHelp> callHelp(const FileModel &file, Offset offset,
    const std::vector<SharedObject> &shared, const DescribeElsewhere &elsewhere)
{
    const auto *part = file.partAt(offset);
    const auto call = part ? openCall(*part, offset) : std::nullopt;
    auto callee = call ? descriptionOfCallee(file, call->calleeEnd, shared) : std::nullopt;
    if (call && !callee)
        callee = elsewhere(call->calleeEnd);
    if (!callee || callee->signature.find('(') == std::string::npos)
        return std::nullopt;
    return CallHelp{callee->signature, callee->text, parametersOf(callee->signature), call->commas};
}

} // namespace kevra::script
