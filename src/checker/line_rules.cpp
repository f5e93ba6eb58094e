// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/line_rules.h"

#include "colour/marks.h"
#include "text/mark_scan.h"
#include "text/words.h"

#include <algorithm>
#include <array>

namespace kevra {
namespace {

/// Only odd counts up to nine are faults: a line with eleven quotes passes.
constexpr bool isOddCount(Offset quotes)
{
    return quotes % 2 == 1 && quotes <= 9;
}

/// Whether a character after this many quotes is code; after eight or more it counts as part of a literal.
constexpr bool isOutsideLiteral(Offset quotes)
{
    return quotes % 2 == 0 && quotes <= 6;
}

/// The first three are only counted.
enum Mark : unsigned char { Quote, Open, Close, None, Apostrophe, Comma, Equal, LetterI, LetterT };
constexpr std::size_t countedMarks = 3;

constexpr auto marks = [] {
    std::array<Mark, 256> all{};
    all.fill(None);
    all['"'] = Quote;
    all['\''] = Apostrophe;
    all['('] = Open;
    all[')'] = Close;
    all[','] = Comma;
    all['='] = Equal;
    all['i'] = all['I'] = LetterI;
    all['t'] = all['T'] = LetterT;
    return all;
}();

/// The position of a word and the number of quotes before it on the line.
struct WordPlace {
    Offset at = 0;
    Offset quotes = 0;
};

/// Everything the rules need to know about a line, collected in one pass.
class LineFacts {
public:
    /// The line ends at `end` at the latest. Its bytes are passed to take() in order: all of them, or only
    /// those that matter to a rule.
    LineFacts(std::string_view text, Offset start, Offset end)
        : m_text(text)
        , m_start(start)
        , m_end(end)
    {
    }

    /// Resets the facts for the next line; cheaper than a new object.
    void startLine(Offset start)
    {
        m_start = start;
        m_ended = m_badComma = m_badEqual = m_equalsEnded = false;
        m_markBeforeStart = None;
        m_counts.fill(0);
        m_if.reset();
        m_then.reset();
    }

    void take(Offset at)
    {
        const auto mark = marks[static_cast<unsigned char>(m_text[static_cast<std::size_t>(at)])];
        if (m_ended || mark == None)
            return;
        if (mark < countedMarks)
            ++m_counts[mark];
        else if (mark == Apostrophe)
            m_ended = startsComment(at);
        if (at < m_start)
            m_markBeforeStart = mark;
        else if (mark > Apostrophe)
            takeCode(mark, at);
    }

    /// True for most lines: certainly no rule is broken. False: the rules have to be checked.
    [[nodiscard]] bool isFaultless() const
    {
        return m_counts[Quote] % 2 == 0 && !parenthesisMissing() && !m_badComma && !m_badEqual && !m_if;
    }

    [[nodiscard]] bool quoteMissing() const { return isOddCount(m_counts[Quote]); }
    /// Opening parentheses are counted from `start`, closing ones from the first character of the line.
    [[nodiscard]] bool parenthesisMissing() const
    {
        return m_counts[Open] - (m_markBeforeStart == Open) != m_counts[Close];
    }
    [[nodiscard]] bool commaSpacingWrong() const { return m_badComma; }
    [[nodiscard]] bool equalSpacingWrong() const { return m_badEqual; }

    [[nodiscard]] bool thenMissing() const
    {
        if (!m_if || isEndIf(m_if->at) || m_if->quotes > 0)
            return false;
        return !m_then || !isOutsideLiteral(m_then->quotes);
    }

private:
    [[nodiscard]] char byte(Offset at) const
    {
        return at >= 0 && at < static_cast<Offset>(m_text.size()) ? m_text[static_cast<std::size_t>(at)]
                                                                  : '\0';
    }

    /// Counted from `start`.
    [[nodiscard]] Offset quotes() const { return m_counts[Quote] - (m_markBeforeStart == Quote); }

    void takeCode(Mark mark, Offset at)
    {
        if (mark == Comma)
            m_badComma
                = m_badComma || (isOutsideLiteral(quotes()) && (byte(at - 1) == ' ' || byte(at + 1) != ' '));
        else if (mark == Equal)
            takeEqual(at);
        else if (mark == LetterI)
            takeWord(m_if, "if", at);
        else
            takeWord(m_then, "then", at);
    }

    void takeEqual(Offset at)
    {
        // At the start of the text there is no character before it, and later equal signs are not checked
        // either.
        m_equalsEnded = m_equalsEnded || at == 0;
        if (m_equalsEnded || !isOutsideLiteral(quotes()))
            return;
        const char before = byte(at - 1);
        const bool spaced
            = byte(at + 1) == ' ' && (before == '\n' || before == '<' || before == '>' || before == ' ');
        m_badEqual = m_badEqual || !spaced;
    }

    void takeWord(std::optional<WordPlace> &place, std::string_view word, Offset at)
    {
        const auto end = at + static_cast<Offset>(word.size());
        if (place || end > m_end)
            return;
        const auto found = m_text.substr(static_cast<std::size_t>(at), word.size());
        if (equalIgnoringCase(found, word) && !wordBefore(m_text, at) && !wordAt(m_text, end))
            place = {at, quotes()};
    }

    [[nodiscard]] bool startsComment(Offset at) const
    {
        // The mark of a comment cannot include the carriage return of the line or anything after it.
        return at + static_cast<Offset>(separatorComment.size()) < m_end
            && m_text.substr(static_cast<std::size_t>(at)).starts_with(separatorComment);
    }

    /// The "d" of "End" is two characters before the "If", and not at the start of the line.
    [[nodiscard]] bool isEndIf(Offset at) const
    {
        const auto twoBack = characterBefore(m_text, characterBefore(m_text, at));
        return twoBack > m_start && lowerAscii(byte(twoBack)) == 'd';
    }

    std::string_view m_text;
    Offset m_start;
    Offset m_end;
    bool m_ended = false;
    Mark m_markBeforeStart = None; ///< the mark just before the start
    std::array<Offset, countedMarks> m_counts{};
    bool m_badComma = false;
    bool m_badEqual = false;
    bool m_equalsEnded = false;
    std::optional<WordPlace> m_if;
    std::optional<WordPlace> m_then;
};

struct LineRule {
    std::string_view message; ///< the line number is appended
    bool (LineFacts::*broken)() const;
};

// The first broken rule is the one shown.
constexpr std::array lineRules{
    LineRule{"Quotation mark missing - Line ", &LineFacts::quoteMissing},
    LineRule{"Parenthesis missing - Line ", &LineFacts::parenthesisMissing},
    LineRule{"Spacing around comma is wrong - Line ", &LineFacts::commaSpacingWrong},
    LineRule{"Wrong spacing at equal sign - Line ", &LineFacts::equalSpacingWrong},
    LineRule{"IF without THEN - Line ", &LineFacts::thenMissing},
};

std::optional<Fault> faultOf(
    const LineFacts &facts, std::string_view text, ScriptLine line, Offset lineNumber)
{
    const auto rule = std::ranges::find_if(lineRules, [&](const LineRule &r) { return (facts.*r.broken)(); });
    if (rule == lineRules.end())
        return std::nullopt;
    const TextRange marked{line.start,
        line.end < static_cast<Offset>(text.size()) ? line.end + characterLength(text, line.end) : line.end};
    return Fault{std::string(rule->message) + std::to_string(lineNumber), lineNumber, marked, line.end};
}

/// The bytes that matter to a rule: commas and equal signs only if they have the wrong neighbours, words only
/// if they start like "if" or "then".
constexpr auto isMark = [](auto window) {
    const auto bytes = window.at(0);
    const auto before = window.at(-1);
    const auto next = window.at(1);
    const auto letters = lowered(bytes);
    const auto nextLetters = lowered(next);
    const auto spacedAfter = is(next, ' ');
    const auto blankBefore = is(before, ' ');
    const auto spacedBefore = blankBefore | is(before, '\n') | is(before, '<') | is(before, '>');
    return is(bytes, '"') | is(bytes, '(') | is(bytes, ')') | is(bytes, '\r')
        | (is(bytes, '\'') & is(next, '-')) | (is(bytes, ',') & (blankBefore | ~spacedAfter))
        | (is(bytes, '=') & ~(spacedBefore & spacedAfter)) | (is(letters, 'i') & is(nextLetters, 'f'))
        | (is(letters, 't') & is(nextLetters, 'h') & is(lowered(window.at(2)), 'e'));
};

/// Visits the marks of a text in order and checks each line at its carriage return.
class LineWalk {
public:
    LineWalk(std::string_view text, Faults wanted)
        : m_text(text)
        , m_wanted(wanted)
        , m_length(static_cast<Offset>(text.size()))
        , m_start(text.empty() ? 0 : characterLength(text, 0))
        , m_facts(text, m_start, m_length)
    {
    }

    std::vector<Fault> run()
    {
        forEachMark(m_text, isMark, [this](Offset at) {
            if (m_done)
                return;
            if (m_text[static_cast<std::size_t>(at)] == '\r')
                endLine(at + 1);
            else
                m_facts.take(at);
        });
        return std::move(m_faults);
    }

private:
    void endLine(Offset end)
    {
        // A line whose carriage return ends the text is not checked.
        m_done = end >= m_length;
        if (m_done)
            return;
        if (!m_facts.isFaultless())
            check({m_start, end});
        m_start = end + 1;
        m_done = m_done || m_start >= m_length;
        ++m_number;
        m_facts.startLine(m_start);
    }

    void check(ScriptLine line)
    {
        if (auto fault = faultOf(m_facts, m_text, line, m_number)) {
            m_faults.push_back(std::move(*fault));
            m_done = m_wanted == Faults::First;
        }
    }

    std::string_view m_text;
    Faults m_wanted;
    Offset m_length;
    Offset m_start; // for the first line, its second character
    Offset m_number = 1;
    bool m_done = false;
    LineFacts m_facts;
    std::vector<Fault> m_faults;
};

} // namespace

std::optional<Fault> CheckLine(std::string_view text, ScriptLine line, Offset lineNumber)
{
    const auto end = std::min(line.end + 1, static_cast<Offset>(text.size()));
    LineFacts facts(text, line.start, end);
    for (auto at = line.start; at < end; ++at)
        facts.take(at);
    return faultOf(facts, text, line, lineNumber);
}

std::vector<Fault> lineFaults(std::string_view text, Faults wanted)
{
    return LineWalk(text, wanted).run();
}

} // namespace kevra
