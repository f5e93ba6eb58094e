// SPDX-License-Identifier: GPL-3.0-or-later
// The on/off options. Each has a row in settings/options.h with its key, meaning and controls.
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
    AutoReload,
};

inline constexpr std::size_t optionCount = 10;

/// One flag per option.
class OptionFlags {
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
