// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/block_counts.h"

#include "colour/literals.h"
#include "colour/marks.h"
#include "editor/mark_scan.h"
#include "editor/words.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kevra {
namespace {

struct BlockWord {
    std::string_view text;
    std::int16_t BlockCounts::*count;
    std::string_view before; ///< what makes it a closing entry: "end " before "if"
    bool looksBack = false; ///< counted only behind a line break or a blank, two characters back
    bool looksBackInComments = false;
};

// Entries with the same word stand together.
constexpr std::array blockWords{
    BlockWord{"if", &BlockCounts::ifWords, ""},
    BlockWord{"if", &BlockCounts::endIfWords, "end "},
    BlockWord{"for", &BlockCounts::forWords, ""},
    BlockWord{"next", &BlockCounts::nextWords, "", true, true},
    BlockWord{"sub", &BlockCounts::subWords, ""},
    BlockWord{"sub", &BlockCounts::endSubWords, "end "},
    BlockWord{"do", &BlockCounts::doWords, "", true, false},
    BlockWord{"loop", &BlockCounts::loopWords, ""},
};

using Tally = std::array<Offset, blockWords.size()>;

/// By first letter: the index of the first entry whose word starts with it, and 1 more.
constexpr auto firstLetters = [] {
    std::array<unsigned char, 256> all{};
    for (std::size_t i = blockWords.size(); i-- > 0;) {
        const auto letter = static_cast<unsigned char>(blockWords[i].text.front());
        all[letter] = all[letter - 0x20] = static_cast<unsigned char>(i + 1);
    }
    return all;
}();

constexpr bool isAsciiWord(char byte)
{
    const char lower = lowerAscii(byte);
    return (lower >= 'a' && lower <= 'z') || (byte >= '0' && byte <= '9') || byte == '_';
}

bool matches(std::string_view text, Offset at, std::string_view word)
{
    return at >= 0
        && std::ranges::equal(text.substr(static_cast<std::size_t>(at), word.size()), word, {}, lowerAscii);
}

bool followsBreakOrBlank(std::string_view text, Offset word)
{
    const auto twoBack = characterBefore(text, characterBefore(text, word));
    // So close to the start of the text there is nothing to look back at.
    if (twoBack <= 0)
        return true;
    const char byte = text[static_cast<std::size_t>(twoBack)];
    return byte == '\r' || byte == '\n' || byte == ' ';
}

/// The first two letters of each word.
constexpr auto mayStartWord = [](Places places) {
    const auto first = lowered(places.behind(0));
    const auto second = lowered(places.behind(1));
    return (is(first, 'i') & is(second, 'f'))
        | ((is(first, 'f') | is(first, 'd') | is(first, 'l')) & is(second, 'o'))
        | (is(first, 'n') & is(second, 'e')) | (is(first, 's') & is(second, 'u'));
};

enum class Place { Code, Comment };

class WordCounter {
public:
    WordCounter(std::string_view text, TextRange region, Place place)
        : m_text(text)
        , m_region(region)
        , m_place(place)
    {
    }

    Tally count()
    {
        const auto part = m_text.substr(
            static_cast<std::size_t>(m_region.start), static_cast<std::size_t>(m_region.length()));
        forEachMark(part, mayStartWord, [this](Offset at) { look(m_region.start + at); });
        return m_tally;
    }

    /// Counts the word that starts there, if one does.
    void look(Offset at)
    {
        const auto candidate = firstLetters[static_cast<unsigned char>(m_text[static_cast<std::size_t>(at)])];
        if (candidate && !(at > 0 && isAsciiWord(m_text[static_cast<std::size_t>(at - 1)])))
            take(candidate - 1u, at);
    }

    [[nodiscard]] const Tally &tally() const { return m_tally; }

private:
    void take(std::size_t first, Offset at)
    {
        const auto word = blockWords[first].text;
        const auto end = at + static_cast<Offset>(word.size());
        if (end > m_region.end || !matches(m_text, at, word))
            return;
        const bool whole = !wordBefore(m_text, at) && !wordAt(m_text, end);
        for (auto i = first; i < blockWords.size() && blockWords[i].text == word; ++i) {
            const auto &entry = blockWords[i];
            const auto start = at - static_cast<Offset>(entry.before.size());
            // A closing entry is found inside other words as well: "blend iffy" has one.
            m_tally[i] += entry.before.empty()
                ? whole && looksRight(entry, at)
                : start >= m_region.start && matches(m_text, start, entry.before);
        }
    }

    [[nodiscard]] bool looksRight(const BlockWord &entry, Offset at) const
    {
        const bool looks = m_place == Place::Code ? entry.looksBack : entry.looksBackInComments;
        return !looks || followsBreakOrBlank(m_text, at);
    }

    std::string_view m_text;
    TextRange m_region;
    Place m_place;
    Tally m_tally{};
};

constexpr std::int16_t wrapped(int value)
{
    return static_cast<std::int16_t>(value);
}

void add(const Tally &tally, BlockCounts &counts)
{
    for (std::size_t i = 0; i < tally.size(); ++i) {
        auto &count = counts.*blockWords[i].count;
        count = static_cast<std::int16_t>(count + tally[i]);
    }
}

/// Takes away, never below zero.
void take(const Tally &tally, BlockCounts &counts)
{
    for (std::size_t i = 0; i < tally.size(); ++i) {
        auto &count = counts.*blockWords[i].count;
        if (count > 0)
            count = static_cast<std::int16_t>(std::max<Offset>(count - tally[i], 0));
    }
}

std::string verdict(std::string_view opening, int openings, std::string_view closing, int closings)
{
    return std::string(opening) + " - " + std::to_string(openings) + "   " + std::string(closing) + " - "
        + std::to_string(closings);
}

} // namespace

void ResetBlockCounts(BlockCounts &counts)
{
    counts = {};
}

void CountBlocks(std::string_view text, TextRange region, BlockCounts &counts)
{
    add(WordCounter(text, region, Place::Code).count(), counts);
}

void UncountCommentBlocks(std::string_view text, BlockCounts &counts)
{
    const auto length = static_cast<Offset>(text.size());
    Offset passed = 0; // an earlier comment's line
    forEachMark(
        text, [](Places places) { return is(places.behind(0), '\'') & is(places.behind(1), '-'); },
        [&](Offset at) {
            const auto from = static_cast<std::size_t>(at);
            if (at < passed || !text.substr(from).starts_with(separatorComment))
                return;
            const auto carriageReturn = text.find('\r', from);
            const auto end
                = carriageReturn == std::string_view::npos ? length : static_cast<Offset>(carriageReturn);
            take(WordCounter(text, {at, end}, Place::Comment).count(), counts);
            passed = end + 1;
        });
}

BlockCounts countBlocks(std::string_view text)
{
    // One walk over the whole text, its literals left out, in place of one for each piece between them.
    const auto length = static_cast<Offset>(text.size());
    WordCounter counter(text, {0, length}, Place::Code);
    bool literal = false;
    Offset pieceStart = 0;
    forEachMark(
        text, [](Places places) { return is(places.behind(0), quoteMark) | mayStartWord(places); },
        [&](Offset at) {
            if (text[static_cast<std::size_t>(at)] == quoteMark) {
                literal = !literal;
                pieceStart = literal ? pieceStart : at + 1;
            } else if (!literal) {
                counter.look(at);
            }
        });
    BlockCounts counts;
    add(counter.tally(), counts);
    // A literal that is never closed is code, and the piece before it counts once more.
    if (literal)
        CountBlocks(text, {pieceStart, length}, counts);
    UncountCommentBlocks(text, counts);
    return counts;
}

std::vector<std::string> blockVerdicts(const BlockCounts &counts, bool ifChecking)
{
    std::vector<std::string> verdicts;
    if (ifChecking && counts.ifWords != wrapped(2 * counts.endIfWords))
        verdicts.push_back(
            verdict("IF", wrapped(counts.ifWords - counts.endIfWords), "END IF", counts.endIfWords));
    if (counts.forWords != counts.nextWords)
        verdicts.push_back(verdict("FOR", counts.forWords, "NEXT", counts.nextWords));
    if (counts.subWords != wrapped(2 * counts.endSubWords))
        verdicts.push_back(
            verdict("SUB", wrapped(counts.subWords - counts.endSubWords), "END SUB", counts.endSubWords));
    if (counts.doWords != counts.loopWords)
        verdicts.push_back(verdict("DO", counts.doWords, "LOOP", counts.loopWords));
    return verdicts;
}

} // namespace kevra
