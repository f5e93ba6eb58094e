// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/messages.h"

namespace kevra {

class Printing {
public:
    virtual ~Printing() = default;
    /// Shows the printer dialog and prints the selection, or everything if nothing is selected. False if the
    /// dialog was cancelled or the printer failed.
    [[nodiscard]] virtual bool printDocument() = 0;
};

inline void print(Printing &printing, Messages &messages)
{
    if (!printing.printDocument())
        messages.show({"Printing Cancelled", Icon::None, Buttons::Ok, "CANCEL PRINTING"});
}

} // namespace kevra
