// SPDX-License-Identifier: GPL-3.0-or-later
// Finding the few bytes of a text that matter, sixteen at a time. A question is asked of every byte and the
// one behind it at once, and the places where it holds are visited in order.
#pragma once

#include "editor/types.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace kevra {

/// Sixteen bytes; comparing gives sixteen truths.
using Lane = unsigned char __attribute__((vector_size(16)));
using Truths = decltype(Lane() == Lane());

inline constexpr std::size_t laneSize = sizeof(Lane);

/// ASCII capitals made small. A few other characters change as well, never into a letter.
inline Lane lowered(Lane bytes)
{
    return bytes | static_cast<unsigned char>(0x20);
}

inline Truths is(Lane bytes, char byte)
{
    return bytes == static_cast<unsigned char>(byte);
}

/// One bit a byte, the first in the lowest place.
inline unsigned bitsOf(Truths truths)
{
#ifdef __SSE2__
    __m128i packed;
    std::memcpy(&packed, &truths, sizeof packed);
    return static_cast<unsigned>(_mm_movemask_epi8(packed));
#else
    unsigned bits = 0;
    for (std::size_t i = 0; i < laneSize; ++i)
        bits |= static_cast<unsigned>(truths[i] != 0) << i;
    return bits;
#endif
}

/// Sixteen places of a text, each with the bytes that follow it.
class Places {
public:
    static constexpr std::size_t farthest = 3; ///< bytes behind a place that may be asked for

    explicit Places(const char *bytes)
        : m_bytes(bytes)
    {
    }

    /// The bytes so far behind the places.
    [[nodiscard]] Lane behind(std::size_t distance) const
    {
        Lane lane;
        std::memcpy(&lane, m_bytes + distance, laneSize);
        return lane;
    }

private:
    const char *m_bytes;
};

/// Calls visit(places, offset, valid) for the whole text in order; `valid` has a bit for every place that
/// lies inside it. Behind the end of the text zeros are seen.
template <typename Visit> void forEachLane(std::string_view text, Visit visit)
{
    constexpr unsigned all = (1u << laneSize) - 1;
    std::size_t at = 0;
    for (; at + laneSize + Places::farthest <= text.size(); at += laneSize)
        visit(Places(text.data() + at), at, all);
    std::array<char, 3 * laneSize> tail{};
    std::copy_n(text.data() + at, text.size() - at, tail.data());
    for (auto start = at; at < text.size(); at += laneSize)
        visit(Places(tail.data() + (at - start)), at,
            at + laneSize <= text.size() ? all : (1u << (text.size() - at)) - 1);
}

/// Calls visit(offset) wherever question(places) holds.
template <typename Question, typename Visit>
void forEachMark(std::string_view text, Question question, Visit visit)
{
    forEachLane(text, [&](Places places, std::size_t at, unsigned valid) {
        for (auto bits = bitsOf(question(places)) & valid; bits != 0; bits &= bits - 1)
            visit(static_cast<Offset>(at) + std::countr_zero(bits));
    });
}

/// At how many places question(places) holds.
template <typename Question> Offset countMarks(std::string_view text, Question question)
{
    Offset count = 0;
    forEachLane(text, [&](Places places, std::size_t, unsigned valid) {
        count += std::popcount(bitsOf(question(places)) & valid);
    });
    return count;
}

} // namespace kevra
