// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/keyword_pass.h"

#include "colour/add_run.h"
#include "colour/keywords.h"
#include "colour/literals.h"
#include "colour/marks.h"
#include "text/find.h"
#include "text/words.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kevra {
namespace {

enum Kind : unsigned char { Other, WordByte, WideByte };

constexpr auto kinds = [] {
    std::array<Kind, 256> all{};
    for (int byte = 0; byte < 256; ++byte) {
        const bool letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
        const bool digit = byte >= '0' && byte <= '9';
        all[static_cast<std::size_t>(byte)] = byte >= 0x80 ? WideByte
            : letter || digit || byte == '_'               ? WordByte
                                                           : Other;
    }
    return all;
}();

/// Calls visit(rank, range) for the keywords that lie completely inside a range, in text order.
template <typename Visit> class KeywordScan {
public:
    KeywordScan(std::string_view text, TextRange range, Visit visit)
        : m_text(text)
        , m_range(range)
        , m_visit(visit)
    {
    }

    void run()
    {
        auto at = m_range.start;
        while (at < m_range.end) {
            if (kind(at) != WordByte) {
                ++at;
                continue;
            }
            const auto start = at;
            while (at < m_range.end && kind(at) == WordByte)
                ++at;
            word({start, at});
        }
    }

private:
    [[nodiscard]] char byte(Offset at) const { return m_text[static_cast<std::size_t>(at)]; }
    [[nodiscard]] Kind kind(Offset at) const { return kinds[static_cast<unsigned char>(byte(at))]; }

    /// `word` is a sequence of ASCII word characters; letters beyond ASCII may precede or follow it.
    void word(TextRange word)
    {
        const auto length = static_cast<std::size_t>(word.length());
        if (length < shortestKeyword)
            return;
        if (length <= longestKeyword) {
            const int rank = keywordRank(lettersAt(word.start), length);
            if (rank >= 0 && isWhole(word))
                m_visit(rank, word);
        }
        if (length >= 3 && word.end < m_range.end && byte(word.end) == ' ')
            blockEnd(word.end - 3);
    }

    [[nodiscard]] PackedWord lettersAt(Offset at) const
    {
        PackedWord letters = 0;
        const auto rest = m_text.size() - static_cast<std::size_t>(at);
        if (rest >= sizeof letters)
            std::memcpy(&letters, m_text.data() + at, sizeof letters);
        else
            std::memcpy(&letters, m_text.data() + at, rest);
        return letters;
    }

    [[nodiscard]] bool isWhole(TextRange word) const
    {
        const bool openStart = word.start == m_range.start || kind(word.start - 1) == WideByte;
        const bool openEnd = word.end == m_range.end || kind(word.end) == WideByte;
        return !(openStart && wordBefore(m_text, word.start)) && !(openEnd && wordAt(m_text, word.end));
    }

    void blockEnd(Offset start)
    {
        if ((byte(start) | 0x20) != 'e')
            return;
        const auto rank = blockEndRank(m_text, static_cast<std::size_t>(start));
        if (!rank)
            return;
        const TextRange entry{
            start, start + static_cast<Offset>(keywords[static_cast<std::size_t>(*rank)].text.size())};
        if (entry.end <= m_range.end)
            m_visit(*rank, entry);
    }

    std::string_view m_text;
    TextRange m_range;
    Visit m_visit;
};

template <typename Visit> void forEachKeyword(std::string_view text, TextRange range, Visit visit)
{
    KeywordScan<Visit>(text, range, visit).run();
}

/// Runs the passes of a whole document over its pieces, one piece after the other.
class ScriptPass {
public:
    ScriptPass(std::string_view text, Colour code, ColourRuns &runs)
        : m_text(text)
        , m_code(code)
        , m_runs(runs)
        , m_marks(text)
    {
    }

    void operator()(TextRange piece)
    {
        if (piece.start == m_pieceStart)
            m_greenUntil = 0; // the piece before an unclosed literal is repeated
        m_pieceStart = piece.start;
        if (paintKeywords(piece) && paintPlaceholders(piece))
            paintComments(piece);
    }

private:
    void add(const ColourRun &run) { addRun(m_runs, run, static_cast<Offset>(m_text.size())); }

    /// False if the pass ends early: at a "next" too close to the start of the text to look back.
    bool paintKeywords(TextRange piece)
    {
        const bool fails = startsWithNext(piece);
        forEachKeyword(m_text, piece, [&](int rank, TextRange word) {
            if (fails && rank >= nextRank && !(rank == nextRank && word.start < m_firstNext + 1))
                return;
            add({word, m_code});
            if (!fails && rank == nextRank && !followsBreakOrBlank(word.start))
                m_runs.back().colour = colours::black;
        });
        return !fails;
    }

    bool startsWithNext(TextRange piece)
    {
        const auto twoIn = characterAfter(characterAfter(0));
        if (piece.start >= twoIn)
            return false;
        const auto hit = findText(m_text, keywords[nextRank].text,
            {piece.start, std::min(piece.end, twoIn + static_cast<Offset>(keywords[nextRank].text.size()))},
            {.words = Word::Whole});
        if (!hit || *hit >= twoIn)
            return false;
        m_firstNext = *hit;
        return true;
    }

    [[nodiscard]] Offset characterAfter(Offset at) const
    {
        return at < static_cast<Offset>(m_text.size()) ? at + characterLength(m_text, at) : at;
    }

    // Two characters back, not one: an indented Next counts, Resume Next does not.
    [[nodiscard]] bool followsBreakOrBlank(Offset word) const
    {
        const auto twoBack = characterBefore(m_text, characterBefore(m_text, word));
        const char byte = m_text[static_cast<std::size_t>(twoBack)];
        return byte == '\n' || byte == '\r' || byte == ' ';
    }

    /// False if the pass ends early: at a closing mark clearly before the next opening one.
    bool paintPlaceholders(TextRange piece)
    {
        for (auto at = piece.start; at < piece.end;) {
            const auto opening = m_marks.opening.next(at);
            if (opening == -1 || opening >= piece.end)
                break;
            const auto closing = m_marks.closing.next(at);
            if (closing == -1 || closing >= piece.end)
                break;
            const auto end = closing + static_cast<Offset>(placeholderClosing.size());
            if (end < opening)
                return false;
            if (end > opening)
                add({{opening, end}, colours::placeholder});
            at = end;
        }
        return true;
    }

    void paintComments(TextRange piece)
    {
        for (auto at = piece.start; at < piece.end;) {
            const auto comment = m_marks.comment.next(at);
            if (comment == -1 || comment >= piece.end)
                break;
            const auto carriageReturn = m_marks.lineEnd.next(comment);
            const auto end = carriageReturn == -1 ? static_cast<Offset>(m_text.size()) : carriageReturn;
            // The text after this piece is already green if an earlier comment of the line covered it.
            const auto paintedEnd = end <= m_greenUntil ? std::min(end, piece.end) : end;
            add({{comment, paintedEnd}, colours::separatorComment});
            m_greenUntil = std::max(m_greenUntil, end);
            at = std::max(end, comment + static_cast<Offset>(separatorComment.size()));
        }
    }

    std::string_view m_text;
    Colour m_code;
    ColourRuns &m_runs;
    ScriptMarks m_marks;
    Offset m_pieceStart = -1;
    Offset m_greenUntil = 0;
    Offset m_firstNext = -1;
};

/// The pass over a single region differs: its searches for marks count from 1 but start at the 0-based start
/// of the region, so a mark just before the region is found too; and a closing mark may lie outside the
/// region.
class RegionPass {
public:
    RegionPass(std::string_view text, TextRange region, ColourRuns &runs)
        : m_region(region)
        , m_runs(runs)
        , m_marks(text)
        , m_textEnd(static_cast<Offset>(text.size()))
    {
    }

    bool paintPlaceholders()
    {
        auto at = searchStart();
        do {
            const auto opening = m_marks.opening.next(at - 1) + 1;
            if (opening == 0 || opening >= m_region.end)
                return true;
            const auto closing = m_marks.closing.next(at - 1) + 1;
            const auto end = closing + static_cast<Offset>(placeholderClosing.size());
            if (end < opening || end <= at)
                return false;
            if (end > opening)
                m_runs.push_back({{opening - 1, end - 1}, colours::placeholder});
            at = end;
        } while (at < m_region.end);
        return true;
    }

    void paintComments()
    {
        auto at = searchStart();
        do {
            const auto comment = m_marks.comment.next(at - 1) + 1;
            if (comment == 0 || comment >= m_region.end)
                return;
            const auto carriageReturn = m_marks.lineEnd.next(comment - 1);
            const auto end = carriageReturn == -1 ? m_textEnd : carriageReturn;
            m_runs.push_back({{comment - 1, end}, colours::separatorComment});
            at = std::max(end + 1, comment + static_cast<Offset>(separatorComment.size()));
        } while (at < m_region.end);
    }

private:
    [[nodiscard]] Offset searchStart() const { return std::max<Offset>(m_region.start, 1); }

    TextRange m_region;
    ColourRuns &m_runs;
    ScriptMarks m_marks;
    Offset m_textEnd;
};

} // namespace

ColourRuns scriptRuns(std::string_view text, Colour code)
{
    ColourRuns runs;
    ScriptPass pass(text, code, runs);
    forEachPiece(text, {0, static_cast<Offset>(text.size())}, pass);
    return runs;
}

RegionRuns regionRuns(std::string_view text, TextRange region, Colour code)
{
    RegionRuns result;
    forEachKeyword(text, region, [&](int, TextRange word) { result.runs.push_back({word, code}); });
    RegionPass pass(text, region, result.runs);
    result.failed = !pass.paintPlaceholders();
    if (!result.failed)
        pass.paintComments();
    return result;
}

} // namespace kevra
