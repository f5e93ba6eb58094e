// SPDX-License-Identifier: GPL-3.0-or-later
// The options that are on or off. What each is called, stored as and shown by is its row in
// settings/options.h.
#pragma once

#include <array>
#include <cstddef>

namespace kevra {

enum class Option {
    FsoMenu,
    IfChecking,
    Autosave,
    LineDebug,
    Comments,
    ColourCoding,
    KeepIndentation,
    AnalyseTyping,
    PageBeside,
};

inline constexpr std::size_t optionCount = 9;

/// A yes or no for each option.
class OptionSwitches {
public:
    [[nodiscard]] constexpr bool &operator[](Option option) { return m_on[static_cast<std::size_t>(option)]; }
    [[nodiscard]] constexpr bool operator[](Option option) const
    {
        return m_on[static_cast<std::size_t>(option)];
    }

private:
    std::array<bool, optionCount> m_on{};
};

} // namespace kevra
