// SPDX-License-Identifier: GPL-3.0-or-later
// The layout of a script in lines: which lines each block spans, and the nesting depth of each line. Uses
// tokens only, so it works for unfinished scripts too.
#pragma once

#include "script/lexer.h"
#include "script/tree.h"

#include <span>
#include <string_view>
#include <vector>

namespace kevra::script {

/// Lines from 0.
struct LineBlock {
    std::size_t first = 0; ///< the line of its head
    std::size_t last = 0; ///< the line of its end
};

struct LineDepth {
    /// The line begins in script, so its indentation is the script's.
    bool isScript = false;
    bool continues = false; ///< continues the statement of the line before
    unsigned depth = 0; ///< levels
};

class Layout {
public:
    /// `text` must outlive the layout.
    Layout(std::string_view text, std::span<const Piece> pieces);

    [[nodiscard]] const LineIndex &lineIndex() const { return m_index; }
    [[nodiscard]] const std::vector<LineDepth> &lines() const { return m_lines; }
    /// Blocks of more than one line, ascending by their ends.
    [[nodiscard]] const std::vector<LineBlock> &blocks() const { return m_blocks; }
    [[nodiscard]] const std::vector<Token> &tokens() const { return m_tokens; }
    [[nodiscard]] const std::vector<TextRange> &comments() const { return m_comments; }
    [[nodiscard]] const NameTable &names() const { return m_names; }
    [[nodiscard]] std::size_t lineOf(Offset offset) const
    {
        return static_cast<std::size_t>(m_index.lineAt(offset) - 1);
    }
    /// A line without its line break.
    [[nodiscard]] TextRange lineRange(std::size_t line) const;

private:
    struct Open {
        Keyword kind{};
        std::size_t line = 0;
        bool inCase = false;
    };

    void markScriptLines(std::span<const Piece> pieces);
    void logicalLine(std::span<const Token> line);
    void statement(std::span<const Token> words, std::size_t line, bool first);
    void endStatement(Keyword kind, std::size_t line, bool first);
    /// Else, ElseIf and Case.
    void branch(Keyword word, std::size_t line, bool first);
    /// If and ElseIf.
    void ifStatement(std::span<const Token> words, std::size_t line);
    void open(Keyword kind, std::size_t line) { m_open.push_back({kind, line, false}); }
    void close(Keyword kind, std::size_t line);
    void setDepth(std::size_t line, unsigned depth);
    [[nodiscard]] unsigned depth() const;

    std::string_view m_text;
    LineIndex m_index;
    NameTable m_names;
    std::vector<Token> m_tokens; ///< without the End
    std::vector<TextRange> m_comments;
    std::vector<LineDepth> m_lines;
    std::vector<LineBlock> m_blocks;
    std::vector<Open> m_open;
    std::size_t m_nextLine = 0; ///< the first line whose depth is not known yet
    unsigned m_inlineIfs = 0; ///< of the current line
};

/// Whether the token can only be a keyword here.
[[nodiscard]] bool isKeywordHere(std::span<const Token> tokens, std::size_t i);

} // namespace kevra::script
