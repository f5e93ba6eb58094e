// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "preview/preview_records.h"

#include <map>
#include <memory>

namespace kevra {

/// The records of one instance; instances that share `records` see each other.
class FakePreviewRecords : public PreviewRecords {
public:
    using Records = std::shared_ptr<std::map<std::string, Entry>>;

    explicit FakePreviewRecords(Records all = std::make_shared<Records::element_type>())
        : records(std::move(all))
    {
    }
    void exclusively(const std::function<void()> &step) override { step(); }
    std::vector<Entry> all() const override
    {
        std::vector<Entry> entries;
        for (const auto &[name, entry] : *records)
            entries.push_back(entry);
        return entries;
    }
    std::string own() const override { return records->contains(m_own) ? m_own : std::string(); }
    void write(const PreviewRecord &record) override
    {
        if (own().empty())
            m_own = std::to_string(++number);
        (*records)[m_own] = {m_own, record, true};
    }
    void leaveOwn() override
    {
        if (!own().empty())
            (*records)[own()].alive = false;
        m_own.clear();
    }
    void drop(const std::string &name) override { records->erase(name); }

    Records records;

private:
    static inline int number = 0;
    std::string m_own;
};

} // namespace kevra
