// SPDX-License-Identifier: GPL-3.0-or-later
// Several texts from earlier sessions as one list: what is shown of each, and what can be done with it.
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
    std::size_t row = 0; ///< the text that is meant; Later means all of them
};

class RecoveryList {
public:
    virtual ~RecoveryList() = default;
    /// Shows the texts, at least one, and waits. The list stays on the screen until it is ended.
    [[nodiscard]] virtual RecoveryAnswer choose(std::span<const RecoveryRow> rows) = 0;
    virtual void endList() = 0;
};

[[nodiscard]] RecoveryRow recoveryRow(const RecoveryRecord &text);

} // namespace kevra
