// SPDX-License-Identifier: GPL-3.0-or-later
// When a text that is being edited is analysed.
#pragma once

#include "text/types.h"

#include <chrono>

namespace kevra {

/// A page is analysed only while its findings are looked at.
[[nodiscard]] constexpr bool analysesTyping(bool optionOn, bool scriptTools, bool listShown)
{
    return optionOn && (scriptTools || listShown);
}

/// How long nothing must be typed before a text of this length is copied for the analysis.
[[nodiscard]] constexpr std::chrono::milliseconds pauseBeforeAnalysis(Offset length)
{
    using namespace std::chrono_literals;
    constexpr Offset longText = 1 << 20;
    return length > longText ? 1000ms : 300ms;
}

} // namespace kevra
