// SPDX-License-Identifier: GPL-3.0-or-later
// A parameter list as shown to the user, which also defines the number of arguments:
// "text, find, [start], [count]" takes two to four; "[value...]" any number.
#pragma once

#include <cstdint>
#include <string_view>

namespace kevra::script {

class Parameters {
public:
    static constexpr unsigned unlimited = 255;

    // Literals only: the list is stored as a view.
    consteval Parameters(const char *list) // NOLINT(google-explicit-constructor): rows of tables
        : m_list(list)
        , m_least(countOf(m_list, true))
        , m_most(m_list.find("...") != std::string_view::npos ? unlimited : countOf(m_list, false))
    {
    }

    [[nodiscard]] constexpr std::string_view list() const { return m_list; }
    [[nodiscard]] constexpr unsigned least() const { return m_least; }
    [[nodiscard]] constexpr unsigned most() const { return m_most; }

private:
    static constexpr std::uint8_t countOf(std::string_view list, bool requiredOnly)
    {
        std::uint8_t count = 0;
        bool inName = false;
        for (const char c : list) {
            const bool separates = c == ',' || c == ' ';
            if (!separates && !inName && !(requiredOnly && c == '['))
                ++count;
            inName = !separates;
        }
        return count;
    }

    std::string_view m_list;
    std::uint8_t m_least;
    std::uint8_t m_most;
};

} // namespace kevra::script
