// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/recovery_record.h"

#include <string>

namespace kevra {

/// Details for the question about a recovered text: its file, time, size and first lines.
[[nodiscard]] std::string recoveryDetails(const RecoveryRecord &text);

} // namespace kevra
