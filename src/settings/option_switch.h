// SPDX-License-Identifier: GPL-3.0-or-later
// An option that the user switches in the main window: read at the start, shown in its menu item, and stored
// when it is switched.
#pragma once

#include "desktop/main_view.h"
#include "settings/options.h"

#include <functional>

namespace kevra {

class OptionSwitch {
public:
    OptionSwitch(SettingsStore &store, ToolView &tools, Option option, std::function<void(bool on)> apply)
        : m_store(store)
        , m_tools(tools)
        , m_option(option)
        , m_apply(std::move(apply))
    {
    }

    [[nodiscard]] bool isOn() const { return m_on; }
    void load() { set(storedOption(m_store, m_option)); }
    void toggle()
    {
        set(!m_on);
        storeOption(m_store, m_option, m_on);
    }

private:
    void set(bool on)
    {
        m_on = on;
        m_tools.showOption(m_option, on);
        m_apply(on);
    }

    SettingsStore &m_store;
    ToolView &m_tools;
    Option m_option;
    std::function<void(bool)> m_apply;
    bool m_on = false;
};

} // namespace kevra
