// SPDX-License-Identifier: GPL-3.0-or-later
// Finding the few bytes of a text that matter, many at a time. A question is asked of every byte and its
// neighbours at once, and the places where it holds are visited in order. Questions are generic lambdas over
// Window, so that each is compiled for narrow lanes, which every processor has, and for wide ones.
#pragma once

#include "text/types.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <tuple>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace kevra {

/// Some bytes side by side; comparing gives as many truths.
using NarrowLane = unsigned char __attribute__((vector_size(16)));
using WideLane = unsigned char __attribute__((vector_size(32)));
template <typename Lane> using TruthsOf = decltype(Lane() == Lane());

/// ASCII capitals made small. A few other characters change as well, never into a letter.
template <typename Lane> Lane lowered(Lane bytes)
{
    return bytes | static_cast<unsigned char>(0x20);
}

template <typename Lane> TruthsOf<Lane> is(Lane bytes, char byte)
{
    return bytes == static_cast<unsigned char>(byte);
}

/// True for the letters of ASCII.
template <typename Lane> TruthsOf<Lane> isLetter(Lane bytes)
{
    return static_cast<Lane>(lowered(bytes) - static_cast<unsigned char>('a'))
        < static_cast<unsigned char>(26);
}

/// One bit a byte, the first in the lowest place.
template <typename Mask> std::uint32_t bitsOf(Mask truths)
{
    std::uint32_t bits = 0;
#ifdef __SSE2__
    for (std::size_t i = 0; i < sizeof truths; i += sizeof(__m128i)) {
        __m128i part;
        std::memcpy(&part, reinterpret_cast<const char *>(&truths) + i, sizeof part);
        bits |= static_cast<std::uint32_t>(_mm_movemask_epi8(part)) << i;
    }
#else
    for (std::size_t i = 0; i < sizeof truths; ++i)
        bits |= static_cast<std::uint32_t>(truths[i] != 0) << i;
#endif
    return bits;
}

/// Places of a text, each with its neighbours.
template <typename LaneType> class Window {
public:
    using Lane = LaneType;

    explicit Window(const char *bytes)
        : m_bytes(bytes)
    {
    }

    /// The bytes so far behind the places, 3 at most, or before them, -1 at least.
    [[nodiscard]] Lane at(std::ptrdiff_t distance) const
    {
        Lane lane;
        std::memcpy(&lane, m_bytes + distance, sizeof lane);
        return lane;
    }

private:
    const char *m_bytes;
};

/// The truths of as many places as a word has bits.
using BlockBits = std::uint64_t;
inline constexpr std::size_t blockSize = 64;

/// Calls visit(number) for each bit that is set, in order.
template <typename Visit> void forEachBit(BlockBits bits, Visit visit)
{
    for (; bits != 0; bits &= bits - 1)
        visit(static_cast<Offset>(std::countr_zero(bits)));
}

/// The answers to some questions about a few blocks that follow each other.
template <typename... Questions> class BlockAnswers {
public:
    static constexpr std::size_t mostBlocks = 16;
    static constexpr std::size_t before = 1; ///< bytes that are looked at on either side of the blocks
    static constexpr std::size_t behind = 3;
    using Answers = std::array<BlockBits, sizeof...(Questions)>;

    explicit BlockAnswers(Questions... questions)
        : m_questions(questions...)
    {
    }

    void ask(const char *bytes, std::size_t blocks)
    {
#ifdef __x86_64__
        if (__builtin_cpu_supports("avx2"))
            return askWide(bytes, blocks);
#endif
        askEach<NarrowLane>(bytes, blocks);
    }

    [[nodiscard]] const Answers &of(std::size_t block) const
    {
        return m_answers[block];
    }

private:
#ifdef __x86_64__
    __attribute__((target("avx2"), flatten)) void askWide(const char *bytes, std::size_t blocks)
    {
        askEach<WideLane>(bytes, blocks);
    }
#endif

    template <typename Lane>
    __attribute__((always_inline)) void askEach(const char *bytes, std::size_t blocks)
    {
        for (std::size_t i = 0; i < blocks; ++i, bytes += blockSize)
            m_answers[i] = std::apply(
                [bytes](auto... questions) { return Answers{answer<Lane>(bytes, questions)...}; },
                m_questions);
    }

    template <typename Lane, typename Question>
    __attribute__((always_inline)) static BlockBits answer(const char *bytes, Question question)
    {
        BlockBits bits = 0;
        for (std::size_t i = 0; i < blockSize; i += sizeof(Lane))
            bits |= BlockBits{bitsOf(question(Window<Lane>(bytes + i)))} << i;
        return bits;
    }

    std::tuple<Questions...> m_questions;
    std::array<Answers, mostBlocks> m_answers;
};

/// Calls visit(offset, bits...) for blocks that cover the range, in order, with a word of bits for each
/// question; those of places outside the range are clear. Before and behind the text zeros are seen.
template <typename Visit, typename... Questions>
void forEachBlock(std::string_view text, TextRange range, Visit visit, Questions... questions)
{
    using Asked = BlockAnswers<Questions...>;
    Asked asked(questions...);
    const auto end = static_cast<std::size_t>(range.end);
    auto at = static_cast<std::size_t>(range.start);
    const auto askHere = [&]() -> std::size_t {
        const auto room = text.size() - at;
        if (at >= Asked::before && room >= blockSize + Asked::behind) {
            const auto blocks = std::min({Asked::mostBlocks, (room - Asked::behind) / blockSize,
                (end - at + blockSize - 1) / blockSize});
            asked.ask(text.data() + at, blocks);
            return blocks;
        }
        std::array<char, Asked::before + blockSize + Asked::behind> copy{};
        const auto lead = std::min(at, Asked::before);
        text.copy(copy.data() + Asked::before - lead, copy.size() - Asked::before + lead, at - lead);
        asked.ask(copy.data() + Asked::before, 1);
        return 1;
    };
    while (at < end) {
        const auto blocks = askHere();
        for (std::size_t i = 0; i < blocks; ++i, at += blockSize) {
            const auto valid = at + blockSize <= end ? ~BlockBits{0} : ~(~BlockBits{0} << (end - at));
            std::apply([&](auto... bits) { visit(static_cast<Offset>(at), (bits & valid)...); }, asked.of(i));
        }
    }
}

/// Calls visit(offset) wherever question(places) holds in the range.
template <typename Question, typename Visit>
void forEachMark(std::string_view text, TextRange range, Question question, Visit visit)
{
    const auto visitBlock
        = [&](Offset at, BlockBits bits) { forEachBit(bits, [&](Offset bit) { visit(at + bit); }); };
    forEachBlock(text, range, visitBlock, question);
}

template <typename Question, typename Visit>
void forEachMark(std::string_view text, Question question, Visit visit)
{
    forEachMark(text, {0, static_cast<Offset>(text.size())}, question, visit);
}

/// At how many places of the range question(places) holds.
template <typename Question> Offset countMarks(std::string_view text, TextRange range, Question question)
{
    Offset count = 0;
    forEachBlock(
        text, range, [&](Offset, BlockBits bits) { count += std::popcount(bits); }, question);
    return count;
}

} // namespace kevra
