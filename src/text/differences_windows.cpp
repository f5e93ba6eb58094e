// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/differences.h"

#include "text/middle_difference.h"

namespace kevra {

std::vector<Hunk> differences(std::string_view before, std::string_view after)
{
    return middleDifference(before, after);
}

} // namespace kevra
