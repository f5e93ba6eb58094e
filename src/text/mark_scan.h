// SPDX-License-Identifier: GPL-3.0-or-later
// Scans a text for the few bytes that matter, many bytes at a time. A predicate is evaluated for a block of
// bytes and their neighbours at once, and the positions where it holds are visited in order. Predicates are
// generic lambdas over Window, so that each is compiled for narrow lanes, which every processor has, and for
// wide ones.
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

/// Vectors of bytes. A comparison gives a mask of the same size.
using NarrowLane = unsigned char __attribute__((vector_size(16)));
using WideLane = unsigned char __attribute__((vector_size(32)));
template <typename Lane> using MaskOf = decltype(Lane() == Lane());

/// ASCII letters in lower case. A few other characters change too, but never into a letter.
template <typename Lane> Lane lowered(Lane bytes)
{
    return bytes | static_cast<unsigned char>(0x20);
}

template <typename Lane> MaskOf<Lane> is(Lane bytes, char byte)
{
    return bytes == static_cast<unsigned char>(byte);
}

/// Whether each byte is an ASCII letter.
template <typename Lane> MaskOf<Lane> isLetter(Lane bytes)
{
    return static_cast<Lane>(lowered(bytes) - static_cast<unsigned char>('a'))
        < static_cast<unsigned char>(26);
}

/// One bit per byte, the first byte in the lowest bit.
template <typename Mask> std::uint32_t bitsOf(Mask mask)
{
    std::uint32_t bits = 0;
#ifdef __SSE2__
    for (std::size_t i = 0; i < sizeof mask; i += sizeof(__m128i)) {
        __m128i part;
        std::memcpy(&part, reinterpret_cast<const char *>(&mask) + i, sizeof part);
        bits |= static_cast<std::uint32_t>(_mm_movemask_epi8(part)) << i;
    }
#else
    for (std::size_t i = 0; i < sizeof mask; ++i)
        bits |= static_cast<std::uint32_t>(mask[i] != 0) << i;
#endif
    return bits;
}

/// The bytes of consecutive positions in a text, with access to their neighbours.
template <typename LaneType> class Window {
public:
    using Lane = LaneType;

    explicit Window(const char *bytes)
        : m_bytes(bytes)
    {
    }

    /// The bytes at `distance` from the positions, from -1 (before) to 3 (after).
    [[nodiscard]] Lane at(std::ptrdiff_t distance) const
    {
        Lane lane;
        std::memcpy(&lane, m_bytes + distance, sizeof lane);
        return lane;
    }

private:
    const char *m_bytes;
};

/// One bit for each byte of a block.
using BlockBits = std::uint64_t;
inline constexpr std::size_t blockSize = 64;

/// Calls visit(number) for each bit that is set, in order.
template <typename Visit> void forEachBit(BlockBits bits, Visit visit)
{
    for (; bits != 0; bits &= bits - 1)
        visit(static_cast<Offset>(std::countr_zero(bits)));
}

/// The results of several predicates for a few consecutive blocks.
template <typename... Predicates> class BlockResults {
public:
    static constexpr std::size_t maxBlocks = 16;
    static constexpr std::size_t bytesBefore = 1; ///< read on either side of the blocks
    static constexpr std::size_t bytesAfter = 3;
    using Results = std::array<BlockBits, sizeof...(Predicates)>;

    explicit BlockResults(Predicates... predicates)
        : m_predicates(predicates...)
    {
    }

    void evaluate(const char *bytes, std::size_t blocks)
    {
#ifdef __x86_64__
        if (__builtin_cpu_supports("avx2"))
            return evaluateWide(bytes, blocks);
#endif
        evaluateEach<NarrowLane>(bytes, blocks);
    }

    [[nodiscard]] const Results &of(std::size_t block) const
    {
        return m_results[block];
    }

private:
#ifdef __x86_64__
    __attribute__((target("avx2"), flatten)) void evaluateWide(const char *bytes, std::size_t blocks)
    {
        evaluateEach<WideLane>(bytes, blocks);
    }
#endif

    template <typename Lane>
    __attribute__((always_inline)) void evaluateEach(const char *bytes, std::size_t blocks)
    {
        for (std::size_t i = 0; i < blocks; ++i, bytes += blockSize)
            m_results[i] = std::apply(
                [bytes](auto... predicates) { return Results{evaluateBlock<Lane>(bytes, predicates)...}; },
                m_predicates);
    }

    template <typename Lane, typename Predicate>
    __attribute__((always_inline)) static BlockBits evaluateBlock(const char *bytes, Predicate predicate)
    {
        BlockBits bits = 0;
        for (std::size_t i = 0; i < blockSize; i += sizeof(Lane))
            bits |= BlockBits{bitsOf(predicate(Window<Lane>(bytes + i)))} << i;
        return bits;
    }

    std::tuple<Predicates...> m_predicates;
    std::array<Results, maxBlocks> m_results;
};

/// Calls visit(offset, bits...) for the blocks that cover the range, in order, with the bits of each
/// predicate. Bits of positions outside the range are clear. The text is surrounded by zeros.
template <typename Visit, typename... Predicates>
void forEachBlock(std::string_view text, TextRange range, Visit visit, Predicates... predicates)
{
    using Results = BlockResults<Predicates...>;
    Results results(predicates...);
    const auto end = static_cast<std::size_t>(range.end);
    auto at = static_cast<std::size_t>(range.start);
    const auto evaluateHere = [&]() -> std::size_t {
        const auto rest = text.size() - at;
        if (at >= Results::bytesBefore && rest >= blockSize + Results::bytesAfter) {
            const auto blocks = std::min({Results::maxBlocks, (rest - Results::bytesAfter) / blockSize,
                (end - at + blockSize - 1) / blockSize});
            results.evaluate(text.data() + at, blocks);
            return blocks;
        }
        std::array<char, Results::bytesBefore + blockSize + Results::bytesAfter> copy{};
        const auto lead = std::min(at, Results::bytesBefore);
        text.copy(
            copy.data() + Results::bytesBefore - lead, copy.size() - Results::bytesBefore + lead, at - lead);
        results.evaluate(copy.data() + Results::bytesBefore, 1);
        return 1;
    };
    while (at < end) {
        const auto blocks = evaluateHere();
        for (std::size_t i = 0; i < blocks; ++i, at += blockSize) {
            const auto valid = at + blockSize <= end ? ~BlockBits{0} : ~(~BlockBits{0} << (end - at));
            std::apply(
                [&](auto... bits) { visit(static_cast<Offset>(at), (bits & valid)...); }, results.of(i));
        }
    }
}

/// Calls visit(offset) wherever predicate(window) holds in the range.
template <typename Predicate, typename Visit>
void forEachMark(std::string_view text, TextRange range, Predicate predicate, Visit visit)
{
    const auto visitBlock
        = [&](Offset at, BlockBits bits) { forEachBit(bits, [&](Offset bit) { visit(at + bit); }); };
    forEachBlock(text, range, visitBlock, predicate);
}

template <typename Predicate, typename Visit>
void forEachMark(std::string_view text, Predicate predicate, Visit visit)
{
    forEachMark(text, {0, static_cast<Offset>(text.size())}, predicate, visit);
}

/// The number of positions in the range where predicate(window) holds.
template <typename Predicate> Offset countMarks(std::string_view text, TextRange range, Predicate predicate)
{
    Offset count = 0;
    forEachBlock(
        text, range, [&](Offset, BlockBits bits) { count += std::popcount(bits); }, predicate);
    return count;
}

} // namespace kevra
