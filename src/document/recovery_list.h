// SPDX-License-Identifier: GPL-3.0-or-later
// A list of recovered texts from earlier sessions, and what the user can do with each.
#pragma once

#include "storage/recovery_record.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace kevra {

struct RecoveryRow {
    std::string path; ///< empty for new work
    std::int64_t time = 0; ///< seconds since 1970; 0 when not known
    std::size_t size = 0; ///< bytes
    std::string beginning; ///< its first lines, UTF-8, each ended by "\n"
};

enum class RecoveryChoice { Save, Look, Discard, Later };

struct RecoveryAnswer {
    RecoveryChoice choice = RecoveryChoice::Later;
    std::size_t row = 0; ///< the chosen text; Later applies to all of them
};

class RecoveryList {
public:
    virtual ~RecoveryList() = default;
    /// Shows the texts, at least one, and waits for an answer. The list stays visible until endList().
    [[nodiscard]] virtual RecoveryAnswer choose(std::span<const RecoveryRow> rows) = 0;
    virtual void endList() = 0;
};

[[nodiscard]] RecoveryRow recoveryRow(const RecoveryRecord &text);

} // namespace kevra
