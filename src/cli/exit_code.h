// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kevra {

enum ExitCode { Success = 0, FindingsReported = 1, Failure = 2 };

} // namespace kevra
