// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings dialog shows; kept from start-up, because the dialog is built on first use.
#pragma once

#include "desktop/options.h"

#include <string>

namespace kevra {

struct OptionsShown {
    OptionFlags lamps; ///< on is green, off is red

    int autosaveMinutes = 0; ///< the interval box
    std::string fontFace; ///< the face box
    std::string fontSize; ///< the size box
};

} // namespace kevra
