// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/types.h"

#include <string>

namespace kevra {

/// A fault that a rule reports, in one line or in the whole script.
struct Fault {
    std::string message; ///< with the line's number
    Offset line = 0; ///< from 1; 0 when it is about the whole text
    TextRange marked; ///< shown red
    Offset caret = 0; ///< the position of the caret afterwards

    friend bool operator==(const Fault &, const Fault &) = default;
};

} // namespace kevra
