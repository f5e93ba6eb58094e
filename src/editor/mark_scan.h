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

/// Calls visit(offset) wherever question(bytes, followingBytes) holds for a byte of `text`. Behind the end of
/// the text zeros are seen.
template <typename Question, typename Visit>
void forEachMark(std::string_view text, Question question, Visit visit)
{
    const auto bitsAt = [&](const char *bytes) {
        Lane here;
        Lane following;
        std::memcpy(&here, bytes, laneSize);
        std::memcpy(&following, bytes + 1, laneSize);
        return bitsOf(question(here, following));
    };
    const auto visitBits = [&](unsigned bits, std::size_t at) {
        for (; bits != 0; bits &= bits - 1)
            visit(static_cast<Offset>(at) + std::countr_zero(bits));
    };
    std::size_t at = 0;
    for (; at + laneSize < text.size(); at += laneSize)
        visitBits(bitsAt(text.data() + at), at);
    const auto left = text.size() - at;
    if (left == 0)
        return;
    std::array<char, 2 * laneSize> tail{};
    std::copy_n(text.data() + at, left, tail.data());
    visitBits(bitsAt(tail.data()) & ((1u << left) - 1), at);
}

} // namespace kevra
