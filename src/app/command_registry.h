// SPDX-License-Identifier: GPL-3.0-or-later
// The functions that menu items run. Items without one are disabled.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace kevra {

class CommandRegistry {
public:
    void bind(std::string_view item, std::function<void()> command)
    {
        m_commands.insert_or_assign(std::string(item), std::move(command));
    }
    [[nodiscard]] bool isBound(std::string_view item) const
    {
        return m_commands.find(item) != m_commands.end();
    }
    /// Runs the item's command; an unknown item does nothing.
    void run(std::string_view item) const
    {
        if (const auto it = m_commands.find(item); it != m_commands.end())
            it->second();
    }

private:
    std::map<std::string, std::function<void()>, std::less<>> m_commands;
};

} // namespace kevra
