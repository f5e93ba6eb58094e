// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/formatting.h"

#include "script/characters.h"
#include "script/fixes.h"
#include "script/layout.h"

#include <algorithm>
#include <optional>

namespace kevra::script {
namespace {

[[nodiscard]] std::string_view slice(std::string_view text, TextRange range)
{
    return text.substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()));
}

[[nodiscard]] bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

class Indenter {
public:
    Indenter(std::string_view text, const Layout &layout, FileKind kind, const FormatOptions &options)
        : m_text(text)
        , m_layout(layout)
        , m_kind(kind)
        , m_options(options)
    {
    }

    void append(std::size_t firstLine, std::size_t lastLine, std::vector<TextEdit> &edits)
    {
        const auto &lines = m_layout.lines();
        for (std::size_t line = 0; line < lines.size() && line <= lastLine; ++line) {
            if (!lines[line].isScript) {
                m_base.reset();
                continue;
            }
            const auto blanks = leading(line);
            if (!mayIndent(line, blanks))
                continue;
            if (!m_base)
                m_base = baseOf(line, blanks);
            const auto target = wantedColumns(line, blanks);
            const auto white = whitespace(target);
            if (line >= firstLine && slice(m_text, blanks) != white)
                edits.push_back({blanks, white});
        }
    }

    [[nodiscard]] std::string emptyLineIndent(std::size_t line)
    {
        std::vector<TextEdit> unused;
        append(line, line == 0 ? 0 : line - 1, unused);
        const auto &lines = m_layout.lines();
        auto depth = lines[line].depth;
        if (line > 0 && isContinued(line - 1)) {
            if (lines[line - 1].continues)
                return whitespace(wantedColumns(line - 1, leading(line - 1)));
            depth = lines[line - 1].depth + 1;
        }
        return whitespace(m_base.value_or(0) + depth * m_options.tabSize);
    }

private:
    [[nodiscard]] TextRange leading(std::size_t line) const
    {
        const auto range = m_layout.lineRange(line);
        auto end = range.start;
        while (end < range.end && isBlank(m_text[static_cast<std::size_t>(end)]))
            ++end;
        return {range.start, end};
    }

    /// Whether its statement goes on in the next line.
    [[nodiscard]] bool isContinued(std::size_t line) const
    {
        const auto range = m_layout.lineRange(line);
        const auto text = slice(m_text, range);
        const auto last = text.find_last_not_of(" \t");
        const bool marked = last != text.npos && last > 0 && text[last] == '_'
            && !is(static_cast<unsigned char>(text[last - 1]), byte_class::Name);
        return marked && std::ranges::none_of(m_layout.comments(), [&](TextRange comment) {
            return comment.start < range.end && comment.end > range.start;
        });
    }

    /// False for blank lines, end tags of the page, and its own comments.
    [[nodiscard]] bool mayIndent(std::size_t line, TextRange blanks) const
    {
        const auto rest = slice(m_text, {blanks.end, m_layout.lineRange(line).end});
        return !rest.empty() && !rest.starts_with('<') && !rest.starts_with("-->") && !rest.starts_with("//")
            && !rest.starts_with("%>") && !rest.starts_with("]]>");
    }

    [[nodiscard]] unsigned columns(TextRange blanks) const
    {
        unsigned count = 0;
        for (const char c : slice(m_text, blanks))
            count += c == '\t' ? m_options.tabSize - count % m_options.tabSize : 1;
        return count;
    }

    [[nodiscard]] std::string whitespace(unsigned count) const
    {
        if (m_options.insertSpaces)
            return std::string(count, ' ');
        return std::string(count / m_options.tabSize, '\t') + std::string(count % m_options.tabSize, ' ');
    }

    /// In a page the first line determines the base indentation.
    [[nodiscard]] unsigned baseOf(std::size_t line, TextRange blanks) const
    {
        const auto inside = m_layout.lines()[line].depth * m_options.tabSize;
        const auto now = columns(blanks);
        return m_kind == FileKind::Script || now < inside ? 0 : now - inside;
    }

    [[nodiscard]] unsigned wantedColumns(std::size_t line, TextRange blanks)
    {
        const auto now = columns(blanks);
        if (m_layout.lines()[line].continues) {
            const auto moved = static_cast<long>(now) + m_moved;
            return static_cast<unsigned>(std::max(moved, 0L));
        }
        const auto target = *m_base + m_layout.lines()[line].depth * m_options.tabSize;
        m_moved = static_cast<long>(target) - static_cast<long>(now);
        return target;
    }

    std::string_view m_text;
    const Layout &m_layout;
    FileKind m_kind;
    const FormatOptions &m_options;
    std::optional<unsigned> m_base; ///< columns of depth 0 in this piece of script
    long m_moved = 0; ///< columns that the continued statement was moved by
};

enum class Gap { Keep, None, One, OneIfAny };

[[nodiscard]] bool isOperator(TokenKind kind)
{
    return (kind >= TokenKind::Equal && kind <= TokenKind::Ampersand);
}

[[nodiscard]] bool isLineEnd(TokenKind kind)
{
    return kind == TokenKind::NewLine || kind == TokenKind::UnitEnd || kind == TokenKind::OutputStart
        || kind == TokenKind::Colon;
}

[[nodiscard]] bool endsOperand(std::span<const Token> tokens, std::size_t i)
{
    switch (tokens[i].kind) {
    case TokenKind::Number:
    case TokenKind::String:
    case TokenKind::Date:
    case TokenKind::RightParenthesis:
        return true;
    case TokenKind::Name: {
        const auto word = tokens[i].keyword();
        return !isReserved(word) || word == Keyword::True || word == Keyword::False || word == Keyword::Null
            || word == Keyword::Empty || word == Keyword::Nothing || word == Keyword::Me;
    }
    default:
        return false;
    }
}

[[nodiscard]] bool isSign(std::span<const Token> tokens, std::size_t i)
{
    const auto kind = tokens[i].kind;
    return (kind == TokenKind::Plus || kind == TokenKind::Minus) && (i == 0 || !endsOperand(tokens, i - 1));
}

/// The gap between token i and the next. Blanks before a dot or a parenthesis can be significant, so they are
/// neither added nor removed.
[[nodiscard]] Gap gapAfter(std::span<const Token> tokens, std::size_t i)
{
    const auto left = tokens[i].kind;
    const auto right = tokens[i + 1].kind;
    if (left == TokenKind::Dot || right == TokenKind::Dot || left == TokenKind::Invalid
        || right == TokenKind::Invalid || isLineEnd(left) || isLineEnd(right) || isSign(tokens, i))
        return Gap::Keep;
    if (left == TokenKind::LeftParenthesis || right == TokenKind::RightParenthesis)
        return Gap::None;
    if (left == TokenKind::Comma || isOperator(left) || isOperator(right))
        return Gap::One;
    if (right == TokenKind::Comma)
        return Gap::None;
    if (right == TokenKind::LeftParenthesis && endsOperand(tokens, i))
        return Gap::OneIfAny;
    return Gap::One;
}

void appendSpacing(std::string_view text, const Layout &layout, std::vector<TextEdit> &edits)
{
    const std::span<const Token> tokens = layout.tokens();
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        const TextRange between{tokens[i].end, tokens[i + 1].start};
        const auto gap = between.end < between.start ? std::string_view("?") : slice(text, between);
        if (!std::ranges::all_of(gap, isBlank))
            continue;
        const auto target = gapAfter(tokens, i);
        const std::string_view blanks
            = target == Gap::One || (target == Gap::OneIfAny && !gap.empty()) ? " " : "";
        if (target != Gap::Keep && gap != blanks)
            edits.push_back({between, std::string(blanks)});
    }
}

void appendKeywords(std::string_view text, const Layout &layout, std::vector<TextEdit> &edits)
{
    const std::span<const Token> tokens = layout.tokens();
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const TextRange range{tokens[i].start, tokens[i].end};
        if (isKeywordHere(tokens, i) && slice(text, range) != layout.names().spelling(tokens[i].name))
            edits.push_back({range, std::string(layout.names().spelling(tokens[i].name))});
    }
}

/// Removes trailing blanks, except in comments.
void appendTrailing(std::string_view text, const Layout &layout, std::vector<TextEdit> &edits)
{
    for (std::size_t line = 0; line < layout.lines().size(); ++line) {
        const auto range = layout.lineRange(line);
        auto end = range.end;
        while (end > range.start && isBlank(text[static_cast<std::size_t>(end) - 1]))
            --end;
        if (end == range.end || !layout.lines()[line].isScript)
            continue;
        const auto comment
            = std::ranges::lower_bound(layout.comments(), end, {}, [](TextRange other) { return other.end; });
        const bool inComment = comment != layout.comments().end() && comment->start < range.end;
        const bool lineIsEmpty = end == range.start;
        const bool afterWord = std::ranges::binary_search(
            layout.tokens(), end, {}, [](const Token &token) { return static_cast<Offset>(token.end); });
        if (!inComment && (lineIsEmpty || afterWord))
            edits.push_back({{end, range.end}, {}});
    }
}

[[nodiscard]] bool sameWords(std::string_view before, std::string_view after, const FileModel &file)
{
    const FileModel then(after, file.kind());
    if (then.parts().size() != file.parts().size())
        return false;
    for (std::size_t i = 0; i < file.parts().size(); ++i) {
        const Layout a(before, file.parts()[i]->island.pieces);
        const Layout b(after, then.parts()[i]->island.pieces);
        const auto same = [&](const Token &x, const Token &y) {
            const auto left = slice(before, {x.start, x.end});
            const auto right = slice(after, {y.start, y.end});
            return x.kind == y.kind && (isLineEnd(x.kind) || left == right || folded(left) == folded(right));
        };
        if (!std::ranges::equal(a.tokens(), b.tokens(), same))
            return false;
    }
    return true;
}

void sortEdits(std::vector<TextEdit> &edits)
{
    std::ranges::stable_sort(edits, {}, [](const TextEdit &edit) { return edit.range.start; });
    // Parts may share a script and then yield the same edits.
    edits.erase(std::unique(edits.begin(), edits.end(),
                    [](const TextEdit &a, const TextEdit &b) { return a.range == b.range; }),
        edits.end());
}

[[nodiscard]] bool overlap(const std::vector<TextEdit> &edits)
{
    return std::ranges::adjacent_find(edits, [](const TextEdit &a, const TextEdit &b) {
        return b.range.start < a.range.end;
    }) != edits.end();
}

} // namespace

std::vector<TextEdit> formatted(const FileModel &file, const FormatOptions &options)
{
    std::vector<TextEdit> edits;
    for (const auto &part : file.parts()) {
        const Layout layout(file.text(), part->island.pieces);
        Indenter(file.text(), layout, file.kind(), options).append(0, layout.lines().size(), edits);
        appendSpacing(file.text(), layout, edits);
        appendKeywords(file.text(), layout, edits);
        appendTrailing(file.text(), layout, edits);
    }
    sortEdits(edits);
    if (overlap(edits) || !sameWords(file.text(), edited(file.text(), edits), file))
        edits.clear();
    return edits;
}

std::vector<TextEdit> indentedAfterBreak(const FileModel &file, Offset offset, const FormatOptions &options)
{
    std::vector<TextEdit> edits;
    const auto *part = file.partAt(offset);
    if (!part)
        return edits;
    const Layout layout(file.text(), part->island.pieces);
    const auto line = layout.lineOf(offset);
    Indenter(file.text(), layout, file.kind(), options).append(line == 0 ? 0 : line - 1, line, edits);
    // An empty line has no indentation to change, but gets one to start with.
    const auto range = layout.lineRange(line);
    if (layout.lines()[line].isScript && std::ranges::all_of(slice(file.text(), range), isBlank)) {
        auto white = Indenter(file.text(), layout, file.kind(), options).emptyLineIndent(line);
        if (slice(file.text(), range) != white)
            edits.push_back({range, std::move(white)});
    }
    return edits;
}

} // namespace kevra::script
