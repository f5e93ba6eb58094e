// SPDX-License-Identifier: GPL-3.0-or-later
// The ends of blocks: which block a word ends, unclosed blocks, and ends without a block.
#include "script/parser_state.h"

namespace kevra::script {

namespace {

struct BlockWords {
    std::string_view name; ///< as messages call it
    std::string_view end;
};

// In the order of BlockKind.
constexpr std::array<BlockWords, blockKinds> blockWords{{{"If", "End If"}, {"If", "End If"},
    {"Select Case", "End Select"}, {"For", "Next"}, {"Do", "Loop"}, {"While", "Wend"}, {"With", "End With"},
    {"Sub", "End Sub"}, {"Function", "End Function"}, {"Property", "End Property"}, {"Class", "End Class"}}};

const BlockWords &wordsOf(BlockKind kind)
{
    return blockWords[static_cast<std::size_t>(kind)];
}

bool isProcedure(BlockKind kind)
{
    return kind == BlockKind::Sub || kind == BlockKind::Function || kind == BlockKind::Property;
}

struct EndWord {
    Keyword word;
    BlockKind block;
};
constexpr std::array endWords{
    EndWord{Keyword::If, BlockKind::If},
    EndWord{Keyword::Select, BlockKind::Select},
    EndWord{Keyword::With, BlockKind::With},
    EndWord{Keyword::Sub, BlockKind::Sub},
    EndWord{Keyword::Function, BlockKind::Function},
    EndWord{Keyword::Property, BlockKind::Property},
    EndWord{Keyword::Class, BlockKind::Class},
    // Not VBScript, but it is clear which block they are meant to end.
    EndWord{Keyword::While, BlockKind::While},
    EndWord{Keyword::For, BlockKind::For},
    EndWord{Keyword::Do, BlockKind::Do},
};

std::optional<BlockKind> afterEnd(Keyword keyword)
{
    const auto found = std::ranges::find(endWords, keyword, &EndWord::word);
    return found == endWords.end() ? std::nullopt : std::optional(found->block);
}

} // namespace

void Parser::open(BlockKind kind, TextRange head, std::string_view name)
{
    m_open.push_back({kind, head, name});
    ++m_openCount[static_cast<std::size_t>(kind)];
}

void Parser::close()
{
    --m_openCount[static_cast<std::size_t>(m_open.back().kind)];
    m_open.pop_back();
}

/// The kind of block that the current word ends or divides; nothing where a statement can begin.
std::optional<BlockKind> Parser::endedBlock()
{
    switch (m_token.keyword()) {
    case Keyword::Else:
    case Keyword::ElseIf:
        return BlockKind::If;
    case Keyword::EndIf:
        if (!isOpen(BlockKind::If) || (peek().kind != TokenKind::NewLine && peek().kind != TokenKind::End))
            return std::nullopt;
        return BlockKind::If;
    case Keyword::Case:
        return BlockKind::Select;
    case Keyword::Next:
        return BlockKind::For;
    case Keyword::Loop:
        return BlockKind::Do;
    case Keyword::WEnd:
        return BlockKind::While;
    case Keyword::End:
        return peek().kind == TokenKind::Name ? afterEnd(peek().keyword()) : std::nullopt;
    default:
        return std::nullopt;
    }
}

bool Parser::atBlockEnd()
{
    return atTextEnd() || (at(TokenKind::Name) && (endedBlock() || atDeclarationBoundary()));
}

/// Statements up to the next word that ends or divides a block, whichever block that is.
void Parser::statementsInto(ChildList &list, bool classBody)
{
    for (;;) {
        while (at(TokenKind::NewLine) || at(TokenKind::Colon))
            advance();
        if (atBlockEnd())
            return;
        const auto start = m_token.start;
        const bool member = !classBody || classMember();
        m_build.append(list, statement());
        if (!member && !m_strayInClass)
            m_strayInClass = from(start);
        expectStatementEnd();
        recover();
        if (TreeBuilder::tooDeep(list))
            stopHere();
    }
}

NodeId Parser::block(BlockKind kind, bool classBody)
{
    ChildList list;
    const auto place = m_lastEnd;
    do
        statementsInto(list, classBody);
    while (!blockEnds(kind));
    const auto start = list.first == 0 ? place : static_cast<Offset>(m_build[list.first].start);
    const auto end = list.last == 0 ? start : static_cast<Offset>(m_build[list.last].end);
    return built(NodeKind::Block, {start, end}, list);
}

/// True if the innermost block ends here, by its own end or because an outer block's end follows. A word that
/// ends nothing is reported and skipped.
bool Parser::blockEnds(BlockKind kind)
{
    if (atTextEnd() || atDeclarationBoundary())
        return true;
    const auto ended = *endedBlock();
    if (ended == kind || isOpen(ended) || (ended == BlockKind::If && isOpen(BlockKind::InlineIf)))
        return true;
    // A procedure closed with the end of another kind, such as Sub with End Function.
    if (isProcedure(ended) && inProcedure())
        return true;
    if (ended == BlockKind::Class && isOpen(BlockKind::Class))
        return true;
    strayEnd(ended);
    return false;
}

/// Closes the innermost block at its end, or reports that it is still open.
void Parser::takeBlockEnd(BlockKind kind)
{
    const auto opened = m_open.back();
    for (;;) {
        std::optional<BlockKind> ended;
        if (at(TokenKind::Name))
            ended = endedBlock();
        const bool divides = at(Keyword::Else) || at(Keyword::ElseIf) || at(Keyword::Case);
        if (ended == kind && !divides)
            break;
        if (ended == kind) {
            // A second Else, or a Case outside any Select.
            strayEnd(kind);
            ChildList rest;
            do
                statementsInto(rest, false);
            while (!blockEnds(kind));
            continue;
        }
        if (ended && isProcedure(*ended) && isProcedure(kind)) {
            const auto start = m_token.start;
            const TextRange range{start, peek().end};
            auto *finding = report(Rule::UnmatchedBlockEnd, range,
                quoted(range) + " cannot end the " + std::string(wordsOf(kind).name) + " "
                    + inLine(opened.head.start) + ".");
            if (finding != nullptr)
                finding->related.push_back({opened.head, "This is what it stands at the end of."});
            replaceFix(
                finding, range, std::string(wordsOf(kind).end), "Write " + std::string(wordsOf(kind).end));
            break;
        }
        unclosed(opened);
        close();
        return;
    }
    m_indents.note(m_script.text, kind, opened.head, blockEndRange());
    skipBlockEnd();
    close();
}

TextRange Parser::blockEndRange()
{
    return {m_token.start, at(Keyword::End) || atDeclarationBoundary() ? peek().end : m_token.end};
}

/// Skips the words that end a block, and what people often write after them.
void Parser::skipBlockEnd()
{
    const auto keyword = m_token.keyword();
    const auto start = m_token.start;
    const auto ended = endedBlock();
    advance();
    if (keyword == Keyword::End)
        advance();
    const bool foreign = keyword == Keyword::EndIf
        || (keyword == Keyword::End
            && (ended == BlockKind::While || ended == BlockKind::For || ended == BlockKind::Do));
    if (foreign && ended) {
        const auto range = from(start);
        const auto right = std::string(wordsOf(*ended).end);
        auto *finding = report(Rule::UnmatchedBlockEnd, range,
            std::string(wordsOf(*ended).name) + " ends with " + right + ", not with " + quoted(range) + ".");
        replaceFix(finding, range, right, "Write " + right);
    }
    if (keyword != Keyword::Next || !atName())
        return;
    const auto before = m_lastEnd;
    const TextRange first = tokenRange();
    while (atName() || at(TokenKind::Comma))
        advance();
    auto *finding = report(
        Rule::NameAfterNext, from(first.start), "Next stands alone, without the name of a variable.");
    removeFix(finding, {before, m_lastEnd}, "Remove the name");
}

void Parser::unclosed(const OpenBlock &open)
{
    const auto &words = wordsOf(open.kind);
    auto head = open.head;
    auto other = blockEndRange();
    const auto stray = open.kind == BlockKind::Class && atTextEnd() ? m_strayInClass : std::nullopt;
    const auto *inner = m_indents.withoutEnd(m_script.text, open.kind, head.start);
    if (inner != nullptr) {
        head = inner->head;
        other = inner->end;
    } else if (stray) {
        other = *stray;
    }
    auto what = std::string(words.name);
    if (!open.name.empty())
        what += " " + std::string(open.name);
    what += " " + inLine(head.start) + " is still open at ";
    what += inner == nullptr && !stray && atTextEnd() ? "the end of the script."
                                                      : quoted(other) + " " + inLine(other.start) + ".";
    const bool quiet = std::exchange(m_quiet, false);
    auto *finding = report(Rule::UnclosedBlock, head, std::move(what));
    m_quiet = quiet;
    if (finding != nullptr)
        finding->related.push_back({other, std::string(words.end) + " is expected before this."});
}

/// Of two Else in one If, the first if only that one is indented differently from the If.
std::optional<TextRange> Parser::surplusElse() const
{
    if (m_open.empty() || m_open.back().elseRange.empty() || at(Keyword::End))
        return std::nullopt;
    const auto head = indentAt(m_script.text, m_open.back().head.start);
    const auto first = indentAt(m_script.text, m_open.back().elseRange.start);
    if (!head || !first || *first == *head || indentAt(m_script.text, m_token.start) != head)
        return std::nullopt;
    return m_open.back().elseRange;
}

/// A word that ends or divides a block, with no such block open.
void Parser::strayEnd(BlockKind kind)
{
    const bool divides = at(Keyword::Else) || at(Keyword::ElseIf) || at(Keyword::Case);
    const auto here = blockEndRange();
    const auto *earlier = divides ? nullptr : m_indents.withSurplusEnd(m_script.text, kind, here.start);
    const auto range = earlier != nullptr ? earlier->end : surplusElse().value_or(here);
    const bool afterInline
        = kind == BlockKind::If && m_lastInlineIf && !isOpen(BlockKind::If) && earlier == nullptr;
    auto what = "No " + std::string(wordsOf(kind).name) + " is open for " + quoted(range) + ".";
    if (afterInline)
        what += " The If " + inLine(m_lastInlineIf->start)
            + " has its statement behind Then and ends with its line.";
    if (kind == BlockKind::If && isOpen(BlockKind::If) && divides)
        what = quoted(range) + " stands after the Else of this If.";
    auto *finding = report(Rule::UnmatchedBlockEnd, range, std::move(what));
    if (finding != nullptr && afterInline)
        finding->related.push_back({*m_lastInlineIf, "This If ends with its line."});
    if (finding != nullptr && earlier != nullptr)
        finding->related.push_back({here, "By the nesting alone this is one too many."});
    const auto keyword = m_token.keyword();
    advance();
    if (keyword == Keyword::End)
        advance();
    if (!divides)
        return;
    // The condition or values after it no longer matter.
    m_quiet = true;
    m_failed = keyword != Keyword::Else;
    recover();
}

} // namespace kevra::script
