// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/recovery_record.h"

#include <span>
#include <string>

namespace kevra {

/// What a question about a recovered text leaves out: which file, when, how much, how it begins; and what
/// else waits, in one list.
[[nodiscard]] std::string recoveryDetails(const RecoveryRecord &text, std::span<const RecoveryRecord> others);

} // namespace kevra
