// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/block_counts.h"

#include "colour/literals.h"
#include "colour/marks.h"
#include "text/mark_scan.h"
#include "text/word_start.h"
#include "text/words.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

namespace kevra {
namespace {

struct BlockWord {
    std::string_view text;
    std::int16_t BlockCounts::*count;
    std::int16_t BlockCounts::*closingCount = nullptr; ///< of the word behind "end ", if that closes a block
    bool looksBack = false; ///< counted only behind a line break or a blank, two characters back
    bool looksBackInComments = false;
};

constexpr std::array blockWords{
    BlockWord{"if", &BlockCounts::ifWords, &BlockCounts::endIfWords},
    BlockWord{"for", &BlockCounts::forWords},
    BlockWord{"next", &BlockCounts::nextWords, nullptr, true, true},
    BlockWord{"sub", &BlockCounts::subWords, &BlockCounts::endSubWords},
    BlockWord{"do", &BlockCounts::doWords, nullptr, true, false},
    BlockWord{"loop", &BlockCounts::loopWords},
};

constexpr std::string_view closingWord = "end ";

constexpr auto wordStarts = [] {
    std::array<WordStart, blockWords.size()> all;
    std::ranges::transform(blockWords, all.begin(), [](const auto &word) { return WordStart(word.text); });
    return all;
}();

/// By first letter: the index of the word, and 1 more. No two start alike.
constexpr auto firstLetters = [] {
    std::array<unsigned char, 256> all{};
    for (std::size_t i = 0; i < blockWords.size(); ++i) {
        const auto letter = static_cast<unsigned char>(blockWords[i].text.front());
        all[letter] = all[letter - 0x20] = static_cast<unsigned char>(i + 1);
    }
    return all;
}();

struct Tally {
    std::array<Offset, blockWords.size()> words{};
    std::array<Offset, blockWords.size()> closings{};
};

bool followsClosingWord(std::string_view text, Offset at, Offset from)
{
    const auto start = at - static_cast<Offset>(closingWord.size());
    return start >= from && text[static_cast<std::size_t>(at - 1)] == closingWord.back()
        && std::ranges::equal(
            text.substr(static_cast<std::size_t>(start), closingWord.size()), closingWord, {}, lowerAscii);
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

/// The letters of each word as far as three, where no letter stands before them.
constexpr auto mayStartWord = [](auto places) {
    const auto first = lowered(places.at(0));
    const auto second = lowered(places.at(1));
    const auto third = lowered(places.at(2));
    const auto starts = (is(first, 'i') & is(second, 'f'))
        | (is(second, 'o')
            & ((is(first, 'f') & is(third, 'r')) | (is(first, 'l') & is(third, 'o')) | is(first, 'd')))
        | (is(first, 'n') & is(second, 'e') & is(third, 'x'))
        | (is(first, 's') & is(second, 'u') & is(third, 'b'));
    return starts & ~isLetter(places.at(-1));
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

    /// Counts the word that starts there, if one does.
    void look(Offset at)
    {
        const auto candidate = firstLetters[static_cast<unsigned char>(m_text[static_cast<std::size_t>(at)])];
        if (candidate != 0)
            take(candidate - 1u, at);
    }

    [[nodiscard]] const Tally &tally() const { return m_tally; }

private:
    void take(std::size_t i, Offset at)
    {
        const auto &word = blockWords[i];
        const auto end = at + static_cast<Offset>(word.text.size());
        if (end > m_region.end || !wordStarts[i].mayBeAt(bytesAt(m_text, static_cast<std::size_t>(at))))
            return;
        m_tally.words[i] += !wordBefore(m_text, at) && !wordAt(m_text, end) && looksRight(word, at);
        // Behind "end " it closes a block inside other words as well: "blend iffy" has one.
        if (word.closingCount)
            m_tally.closings[i] += followsClosingWord(m_text, at, m_region.start);
    }

    [[nodiscard]] bool looksRight(const BlockWord &word, Offset at) const
    {
        const bool looks = m_place == Place::Code ? word.looksBack : word.looksBackInComments;
        return !looks || followsBreakOrBlank(m_text, at);
    }

    std::string_view m_text;
    TextRange m_region;
    Place m_place;
    Tally m_tally;
};

/// Each bit is set from a quote up to the next one, that one left out. The last bit tells how it goes on.
BlockBits behindQuotes(BlockBits quotes, bool literal)
{
    for (int distance = 1; distance < std::numeric_limits<BlockBits>::digits; distance *= 2)
        quotes ^= quotes << distance;
    return literal ? ~quotes : quotes;
}

struct CodeTally {
    Tally tally;
    bool endsInLiteral = false;
};

/// Counts the words outside literals, in one walk. A literal that is never closed is left out here.
CodeTally countOutsideLiterals(std::string_view text)
{
    const TextRange all{0, static_cast<Offset>(text.size())};
    WordCounter counter(text, all, Place::Code);
    bool literal = false;
    const auto visit = [&](Offset at, BlockBits quotes, BlockBits starts) {
        const auto literals = behindQuotes(quotes, literal);
        literal = literals >> (blockSize - 1) != 0;
        forEachBit(starts & ~literals, [&](Offset bit) { counter.look(at + bit); });
    };
    forEachBlock(
        text, all, visit, [](auto places) { return is(places.at(0), quoteMark); }, mayStartWord);
    return {counter.tally(), literal};
}

/// Where the piece before the last quote begins: behind the quote before it.
Offset lastPieceStart(std::string_view text)
{
    const auto before = text.substr(0, text.rfind(quoteMark)).rfind(quoteMark);
    return before == std::string_view::npos ? 0 : static_cast<Offset>(before) + 1;
}

constexpr std::int16_t wrapped(int value)
{
    return static_cast<std::int16_t>(value);
}

void add(const Tally &tally, BlockCounts &counts)
{
    const auto addTo = [&](std::int16_t BlockCounts::*count, Offset number) {
        if (count)
            counts.*count = static_cast<std::int16_t>(counts.*count + number);
    };
    for (std::size_t i = 0; i < blockWords.size(); ++i) {
        addTo(blockWords[i].count, tally.words[i]);
        addTo(blockWords[i].closingCount, tally.closings[i]);
    }
}

/// Takes away, never below zero.
void take(const Tally &tally, BlockCounts &counts)
{
    const auto takeFrom = [&](std::int16_t BlockCounts::*count, Offset number) {
        if (count && counts.*count > 0)
            counts.*count = static_cast<std::int16_t>(std::max<Offset>(counts.*count - number, 0));
    };
    for (std::size_t i = 0; i < blockWords.size(); ++i) {
        takeFrom(blockWords[i].count, tally.words[i]);
        takeFrom(blockWords[i].closingCount, tally.closings[i]);
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
    WordCounter counter(text, region, Place::Code);
    forEachMark(text, region, mayStartWord, [&](Offset at) { counter.look(at); });
    add(counter.tally(), counts);
}

void UncountCommentBlocks(std::string_view text, BlockCounts &counts)
{
    const auto length = static_cast<Offset>(text.size());
    Offset passed = 0; // an earlier comment's line
    forEachMark(
        text, [](auto places) { return is(places.at(0), '\'') & is(places.at(1), '-'); },
        [&](Offset at) {
            const auto from = static_cast<std::size_t>(at);
            if (at < passed || !text.substr(from).starts_with(separatorComment))
                return;
            const auto carriageReturn = text.find('\r', from);
            const auto end
                = carriageReturn == std::string_view::npos ? length : static_cast<Offset>(carriageReturn);
            // Comments are short: what finds words in long texts would cost more here.
            WordCounter counter(text, {at, end}, Place::Comment);
            for (auto place = at; place < end; ++place)
                counter.look(place);
            take(counter.tally(), counts);
            passed = end + 1;
        });
}

BlockCounts countBlocks(std::string_view text)
{
    BlockCounts counts;
    const auto code = countOutsideLiterals(text);
    add(code.tally, counts);
    // A literal that is never closed is code, and the piece before it counts once more.
    if (code.endsInLiteral)
        CountBlocks(text, {lastPieceStart(text), static_cast<Offset>(text.size())}, counts);
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
