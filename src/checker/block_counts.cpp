// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/block_counts.h"

#include "colour/literals.h"
#include "colour/marks.h"
#include "text/mark_scan.h"
#include "text/single_word.h"
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
    std::int16_t BlockCounts::*closingCount = nullptr; ///< of the word after "end ", if that closes a block
    bool looksBack = false; ///< counted only with a line break or blank two characters before it
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

/// For each first letter the index of the word plus 1. No two words start with the same letter.
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
        && equalIgnoringCase(text.substr(static_cast<std::size_t>(start), closingWord.size()), closingWord);
}

bool followsBreakOrBlank(std::string_view text, Offset word)
{
    const auto twoBack = characterBefore(text, characterBefore(text, word));
    // Too close to the start of the text to look back.
    if (twoBack <= 0)
        return true;
    const char byte = text[static_cast<std::size_t>(twoBack)];
    return byte == '\r' || byte == '\n' || byte == ' ';
}

/// The first three letters of each word, with no letter before them.
constexpr auto mayStartWord = [](auto window) {
    const auto first = lowered(window.at(0));
    const auto second = lowered(window.at(1));
    const auto third = lowered(window.at(2));
    const auto starts = (is(first, 'i') & is(second, 'f'))
        | (is(second, 'o')
            & ((is(first, 'f') & is(third, 'r')) | (is(first, 'l') & is(third, 'o')) | is(first, 'd')))
        | (is(first, 'n') & is(second, 'e') & is(third, 'x'))
        | (is(first, 's') & is(second, 'u') & is(third, 'b'));
    return starts & ~isLetter(window.at(-1));
};
static_assert(std::ranges::all_of(blockWords,
                  [](const BlockWord &row) {
                      return holdsAt(mayStartWord, row.text)
                          && blockWords[firstLetters[static_cast<unsigned char>(row.text.front())] - 1u].text
                          == row.text;
                  }),
    "the letter test does not know every word, or two words start with the same letter");

enum class Context { Code, Comment };

class WordCounter {
public:
    WordCounter(std::string_view text, TextRange region, Context context)
        : m_text(text)
        , m_region(region)
        , m_context(context)
    {
    }

    /// Counts the block word that starts at `at`, if there is one.
    void countAt(Offset at)
    {
        const auto candidate = firstLetters[static_cast<unsigned char>(m_text[static_cast<std::size_t>(at)])];
        if (candidate != 0)
            count(candidate - 1u, at);
    }

    [[nodiscard]] const Tally &tally() const { return m_tally; }

private:
    void count(std::size_t i, Offset at)
    {
        const auto &word = blockWords[i];
        const auto end = at + static_cast<Offset>(word.text.size());
        if (end > m_region.end || !wordStarts[i].mayBeAt(bytesAt(m_text, static_cast<std::size_t>(at))))
            return;
        m_tally.words[i] += !wordBefore(m_text, at) && !wordAt(m_text, end) && passesLookBack(word, at);
        // After "end " it closes a block even inside other words, as in "blend iffy".
        if (word.closingCount)
            m_tally.closings[i] += followsClosingWord(m_text, at, m_region.start);
    }

    [[nodiscard]] bool passesLookBack(const BlockWord &word, Offset at) const
    {
        const bool looks = m_context == Context::Code ? word.looksBack : word.looksBackInComments;
        return !looks || followsBreakOrBlank(m_text, at);
    }

    std::string_view m_text;
    TextRange m_region;
    Context m_context;
    Tally m_tally;
};

/// Sets the bits from each opening quote up to, but without, its closing one. `literal` says whether the
/// block starts inside a literal; the last bit says the same for the next block.
BlockBits insideLiterals(BlockBits quotes, bool literal)
{
    for (int distance = 1; distance < std::numeric_limits<BlockBits>::digits; distance *= 2)
        quotes ^= quotes << distance;
    return literal ? ~quotes : quotes;
}

struct CodeTally {
    Tally tally;
    bool endsInLiteral = false;
};

/// Counts the words outside literals in one pass. An unclosed literal is not counted here.
CodeTally countOutsideLiterals(std::string_view text)
{
    const TextRange all{0, static_cast<Offset>(text.size())};
    WordCounter counter(text, all, Context::Code);
    bool literal = false;
    const auto visit = [&](Offset at, BlockBits quotes, BlockBits starts) {
        const auto literals = insideLiterals(quotes, literal);
        literal = literals >> (blockSize - 1) != 0;
        forEachBit(starts & ~literals, [&](Offset bit) { counter.countAt(at + bit); });
    };
    forEachBlock(
        text, all, visit, [](auto window) { return is(window.at(0), quoteMark); }, mayStartWord);
    return {counter.tally(), literal};
}

/// The start of the piece before the last quote: just after the quote before that one.
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

/// Never goes below zero.
void subtract(const Tally &tally, BlockCounts &counts)
{
    const auto subtractFrom = [&](std::int16_t BlockCounts::*count, Offset number) {
        if (count && counts.*count > 0)
            counts.*count = static_cast<std::int16_t>(std::max<Offset>(counts.*count - number, 0));
    };
    for (std::size_t i = 0; i < blockWords.size(); ++i) {
        subtractFrom(blockWords[i].count, tally.words[i]);
        subtractFrom(blockWords[i].closingCount, tally.closings[i]);
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
    WordCounter counter(text, region, Context::Code);
    forEachMark(text, region, mayStartWord, [&](Offset at) { counter.countAt(at); });
    add(counter.tally(), counts);
}

void UncountCommentBlocks(std::string_view text, BlockCounts &counts)
{
    const auto length = static_cast<Offset>(text.size());
    Offset passed = 0; // the end of the line of the last comment
    forEachMark(
        text, [](auto window) { return is(window.at(0), '\'') & is(window.at(1), '-'); },
        [&](Offset at) {
            const auto from = static_cast<std::size_t>(at);
            if (at < passed || !text.substr(from).starts_with(separatorComment))
                return;
            const auto carriageReturn = text.find('\r', from);
            const auto end
                = carriageReturn == std::string_view::npos ? length : static_cast<Offset>(carriageReturn);
            // Comments are short, so a plain loop is faster than forEachMark().
            WordCounter counter(text, {at, end}, Context::Comment);
            for (auto position = at; position < end; ++position)
                counter.countAt(position);
            subtract(counter.tally(), counts);
            passed = end + 1;
        });
}

BlockCounts countScriptBlocks(std::string_view text)
{
    BlockCounts counts;
    const auto code = countOutsideLiterals(text);
    add(code.tally, counts);
    // An unclosed literal counts as code, and the piece before it is counted a second time.
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
