// SPDX-License-Identifier: GPL-3.0-or-later
// The parser's messages, and how it recovers from syntax errors.
#include "script/characters.h"
#include "script/nesting.h"
#include "script/parser_state.h"
#include "text/utf8.h"

namespace kevra::script {

namespace {

/// A text full of errors must not fill the memory.
constexpr std::size_t mostFindings = 1000;
constexpr Offset longestQuote = 40;

} // namespace

Finding *Parser::report(Rule rule, TextRange range, std::string what)
{
    if (m_quiet || m_stopped || m_script.findings.size() >= mostFindings)
        return nullptr;
    m_script.findings.push_back({rule, range, std::move(what), {}, {}});
    return &m_script.findings.back();
}

Finding *Parser::fail(Rule rule, TextRange range, std::string what)
{
    if (m_failed)
        return nullptr;
    auto *finding = report(rule, range, std::move(what));
    m_failed = true;
    m_quiet = true;
    return finding;
}

Finding *Parser::failHere(Rule rule, std::string what)
{
    return fail(rule, hereRange(), std::move(what));
}

TextRange Parser::hereRange() const
{
    if (!atLineEnd() && !at(TokenKind::Colon))
        return tokenRange();
    auto start = std::max<Offset>(m_lastEnd - 1, 0);
    while (start > 0 && continuesCharacter(m_script.text[static_cast<std::size_t>(start)]))
        --start;
    return {start, m_lastEnd};
}

NodeId Parser::failUnexpected(std::string_view expected)
{
    const auto start = m_token.start;
    if (m_failed)
        return wrong(start);
    if (at(TokenKind::Invalid))
        failInvalid();
    else if (at(TokenKind::RightParenthesis))
        fail(Rule::UnexpectedParenthesis, tokenRange(),
            "There is no opening parenthesis for this closing one.");
    else
        failHere(Rule::MissingOperand, std::string(expected) + " is expected before " + tokenName() + ".");
    return wrong(start);
}

std::string Parser::tokenName() const
{
    if (at(TokenKind::Colon) || atLineEnd())
        return at(TokenKind::Colon) ? "the colon" : "the end of the line";
    return quoted(tokenRange());
}

std::string Parser::quoted(TextRange range) const
{
    auto text = std::string(m_script.textOf({range.start, std::min(range.end, range.start + longestQuote)}));
    // Cutting inside a character would make invalid UTF-8.
    while (range.length() > longestQuote && !text.empty() && static_cast<unsigned char>(text.back()) >= 0x80)
        text.pop_back();
    for (auto &byte : text) {
        if (static_cast<unsigned char>(byte) < 0x20)
            byte = ' ';
    }
    return "'" + text + (range.length() > longestQuote ? "...'" : "'");
}

Offset Parser::line(Offset offset)
{
    if (!m_lines)
        m_lines.emplace(m_script.text);
    return m_lines->lineAt(offset);
}

std::string Parser::inLine(Offset offset)
{
    return "in line " + std::to_string(line(offset));
}

void Parser::replaceFix(Finding *finding, TextRange range, std::string text, std::string title)
{
    if (finding != nullptr)
        finding->fixes.push_back({std::move(title), {{range, std::move(text)}}});
}

void Parser::removeFix(Finding *finding, TextRange range, std::string title)
{
    replaceFix(finding, range, {}, std::move(title));
}

namespace {

struct Lookalike {
    std::string_view character;
    std::string_view sign;
};
constexpr std::array lookalikes{
    Lookalike{"\xE2\x80\x9C", "\""}, // double quotation marks
    Lookalike{"\xE2\x80\x9D", "\""}, Lookalike{"\xE2\x80\x9E", "\""},
    Lookalike{"\xE2\x80\x98", "'"}, // single quotation marks
    Lookalike{"\xE2\x80\x99", "'"}, Lookalike{"\xE2\x80\x93", "-"}, // dashes
    Lookalike{"\xE2\x80\x94", "-"}, Lookalike{"\xC2\xA0", " "}, // no-break space
    Lookalike{"\xE3\x80\x80", " "}, // ideographic space
};

} // namespace

void Parser::failInvalid()
{
    const auto range = tokenRange();
    const auto text = m_script.textOf(range);
    if (text == "_")
        return failContinuation();
    if (text == "#") {
        fail(Rule::InvalidDate, range, "The date is not closed with a second number sign.");
        return;
    }
    const auto same = std::ranges::find(lookalikes, text, &Lookalike::character);
    if (same == lookalikes.end()) {
        fail(Rule::InvalidCharacter, range, "The character " + quoted(range) + " has no meaning here.");
        return;
    }
    const auto name = same->sign == " " ? std::string("a space") : std::string(same->sign);
    auto *finding = fail(Rule::InvalidCharacter, range,
        "This character only looks like " + name + " and has no meaning in a script.");
    if (finding != nullptr)
        finding->fixes.push_back(
            {"Write plain characters in the rest of the line", plainCharacters(range.start)});
}

/// An underscore that does not end its line. If a comment follows, a continuation was meant.
void Parser::failContinuation()
{
    const auto range = tokenRange();
    auto *finding
        = fail(Rule::InvalidContinuation, range, "The underscore is not the last sign of its line.");
    const auto end = std::min(m_script.text.find_first_of("\r\n", m_token.end), m_script.text.size());
    const auto next = m_script.text.find_first_not_of(" \t", m_token.end);
    if (next >= end || m_script.text[next] != '\'')
        return;
    removeFix(finding, {range.end, static_cast<Offset>(end)}, "Remove the comment");
    skipToLineEnd();
    if (at(TokenKind::NewLine))
        advance();
    m_quiet = true;
}

/// Edits for all lookalike characters up to the end of the line.
std::vector<TextEdit> Parser::plainCharacters(Offset start) const
{
    std::vector<TextEdit> edits;
    const auto end = std::min(
        m_script.text.find_first_of("\r\n", static_cast<std::size_t>(start)), m_script.text.size());
    for (auto at = static_cast<std::size_t>(start); at < end; ++at) {
        const auto rest = m_script.text.substr(at, end - at);
        for (const auto &like : lookalikes) {
            if (rest.starts_with(like.character))
                edits.push_back({{static_cast<Offset>(at), static_cast<Offset>(at + like.character.size())},
                    std::string(like.sign)});
        }
    }
    return edits;
}

void Parser::reportUnclosed(const Token &token)
{
    const TextRange range{token.start, token.end};
    if (token.kind == TokenKind::String) {
        auto *finding = report(Rule::UnclosedString, range, "The string is not closed on its line.");
        const auto text = folded(m_script.textOf(range));
        const auto then = text.find_last_not_of(" \t") >= 5 ? text.rfind(" then") : std::string::npos;
        const bool beforeThen = then != std::string::npos && text.find_last_not_of(" \t") == then + 4;
        const auto place = beforeThen ? range.start + static_cast<Offset>(then) : range.end;
        replaceFix(
            finding, {place, place}, "\"", beforeThen ? "Close the string before Then" : "Close the string");
    } else {
        report(Rule::UnclosedString, range, "The name in brackets is not closed on its line.");
    }
    m_quiet = true;
}

/// A name directly followed by a type character of related languages, such as name$.
void Parser::typeSuffix()
{
    if (!at(TokenKind::Invalid) || m_token.start != m_lastEnd || m_failed)
        return;
    const auto sign = m_script.textOf(tokenRange());
    if (sign != "$" && sign != "%" && sign != "!" && sign != "#" && sign != "@")
        return;
    const auto next = m_script.text.substr(m_token.end, 1);
    if (sign == "!" && !next.empty() && is(static_cast<unsigned char>(next[0]), byte_class::Name))
        return;
    const auto range = tokenRange();
    auto *finding
        = report(Rule::TypeSuffix, range, "A name cannot end with the type suffix " + quoted(range) + ".");
    removeFix(finding, range, "Remove the suffix");
    advance();
}

/// As Integer, As New Thing, As String * 20: reported and skipped.
void Parser::typeDeclaration()
{
    if (m_failed || !at(Keyword::As))
        return;
    const auto before = m_lastEnd;
    const auto start = m_token.start;
    advance();
    take(Keyword::New);
    while (at(TokenKind::Name) || at(TokenKind::Dot) || at(TokenKind::Multiply) || at(TokenKind::Number))
        advance();
    auto *finding = report(Rule::TypeDeclaration, from(start), "VBScript has no types to declare.");
    removeFix(finding, {before, m_lastEnd}, "Remove the type");
}

void Parser::skipToLineEnd()
{
    while (!atLineEnd())
        advance();
}

void Parser::recover()
{
    if (!m_failed)
        return;
    skipToLineEnd();
    m_failed = false;
}

/// What follows a complete statement: a separator, or one of the words that end a block on the same line.
void Parser::expectStatementEnd()
{
    if (m_failed || atStatementEnd())
        return;
    if (at(Keyword::End) && inProcedure()
        && (peekIs(Keyword::Sub) || peekIs(Keyword::Function) || peekIs(Keyword::Property)))
        return;
    if (isOpen(BlockKind::InlineIf)
        && (at(Keyword::Else) || at(Keyword::ElseIf) || (at(Keyword::End) && peekIs(Keyword::If))))
        return;
    // The end of an outer block, as in For i = 1 To 3: If a Then b: Next.
    if (m_statementStart)
        return;
    if (at(TokenKind::Invalid))
        return failInvalid();
    if (at(TokenKind::RightParenthesis)) {
        fail(Rule::UnexpectedParenthesis, tokenRange(),
            "There is no opening parenthesis for this closing one.");
        return;
    }
    fail(Rule::ExpectedEndOfStatement, tokenRange(), "The statement is complete before " + tokenName() + ".");
}

/// After the head of a block: skips the rest of its line, so that the block is still parsed.
void Parser::expectHeadEnd()
{
    expectStatementEnd();
    recover();
}

NodeId Parser::wrong(Offset start)
{
    return m_build.leaf(NodeKind::Wrong, {std::min(start, m_lastEnd), m_lastEnd});
}

} // namespace kevra::script
