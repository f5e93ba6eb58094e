// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kevra {

enum ExitCode { AllRight = 0, SomethingFound = 1, Unusable = 2 };

} // namespace kevra
