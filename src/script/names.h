// SPDX-License-Identifier: GPL-3.0-or-later
// Interned names: equal spellings, ignoring case, have equal ids.
#pragma once

#include "script/token.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra::script {

/// Lower case for ASCII, Latin-1, Greek and Cyrillic letters; as many bytes as before.
[[nodiscard]] std::string folded(std::string_view name);

class NameTable {
public:
    /// Contains the keywords from the start.
    NameTable();

    /// The name's id; adds a new name. `spelling` must outlive the table.
    NameId intern(std::string_view spelling);
    /// NameId::None if the name is not in the table.
    [[nodiscard]] NameId find(std::string_view spelling) const;
    /// As first spelled.
    [[nodiscard]] std::string_view spelling(NameId name) const { return m_names[index(name)]; }
    /// All ids are below this, so a vector of this size can be indexed by id.
    [[nodiscard]] std::size_t size() const { return m_names.size(); }

private:
    struct Slot {
        std::uint32_t hash = 0;
        NameId name = NameId::None; ///< None: free
    };

    [[nodiscard]] static std::size_t index(NameId name) { return static_cast<std::size_t>(name); }
    /// The slot of the name, or the free one it would take.
    [[nodiscard]] std::size_t slotOf(std::string_view spelling, std::uint32_t hash) const;
    void grow();

    std::vector<std::string_view> m_names;
    std::vector<Slot> m_slots; ///< a power of two, at most half of them in use
};

} // namespace kevra::script
