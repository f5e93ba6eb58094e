// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/clipboard.h"
#include "storage/settings_store.h"

#include <map>
#include <tuple>
#include <vector>

namespace kevra {

class FakeClipboard : public Clipboard {
public:
    std::string readText() const override { return content; }
    void clear() override { content.clear(); }
    void setText(std::string_view text) override { content = text; }

    std::string content;
};

class FakeSettingsStore : public SettingsStore {
public:
    std::string getSetting(std::string_view app, std::string_view section, std::string_view key,
        std::string_view fallback) const override
    {
        read.emplace_back(key);
        const auto it = values.find({std::string(app), std::string(section), std::string(key)});
        return it == values.end() ? std::string(fallback) : it->second;
    }
    void saveSetting(
        std::string_view app, std::string_view section, std::string_view key, std::string_view value) override
    {
        values[{std::string(app), std::string(section), std::string(key)}] = value;
    }
    void deleteSetting(std::string_view app, std::string_view section) override
    {
        std::erase_if(values, [&](const auto &entry) {
            return std::get<0>(entry.first) == app && std::get<1>(entry.first) == section;
        });
    }
    void deleteSetting(std::string_view app) override
    {
        std::erase_if(values, [&](const auto &entry) { return std::get<0>(entry.first) == app; });
    }

    std::map<std::tuple<std::string, std::string, std::string>, std::string> values;
    mutable std::vector<std::string> read; ///< the keys read, in order
};

} // namespace kevra
