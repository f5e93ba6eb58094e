// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "preview/page_notes.h"

#include <map>
#include <memory>

namespace kevra {

/// The notes of one instance; instances that share `notes` see each other.
class FakePageNotes : public PageNotes {
public:
    using Notes = std::shared_ptr<std::map<std::string, Entry>>;

    explicit FakePageNotes(Notes all = std::make_shared<Notes::element_type>())
        : notes(std::move(all))
    {
    }
    void exclusively(const std::function<void()> &step) override { step(); }
    std::vector<Entry> all() const override
    {
        std::vector<Entry> entries;
        for (const auto &[name, entry] : *notes)
            entries.push_back(entry);
        return entries;
    }
    std::string own() const override { return notes->contains(m_own) ? m_own : std::string(); }
    void write(const PageNote &note) override
    {
        if (own().empty())
            m_own = std::to_string(++number);
        (*notes)[m_own] = {m_own, note, true};
    }
    void leaveOwn() override
    {
        if (!own().empty())
            (*notes)[own()].alive = false;
        m_own.clear();
    }
    void drop(const std::string &name) override { notes->erase(name); }

    Notes notes;

private:
    static inline int number = 0;
    std::string m_own;
};

} // namespace kevra
