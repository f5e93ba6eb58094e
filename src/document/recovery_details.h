// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/recovery_record.h"

#include <string>

namespace kevra {

/// What a question about a recovered text leaves out: which file, when, how much, and how it begins.
[[nodiscard]] std::string recoveryDetails(const RecoveryRecord &text);

} // namespace kevra
