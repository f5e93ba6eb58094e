// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/messages.h"

namespace kevra {

class Printing {
public:
    virtual ~Printing() = default;
    /// Asks for a printer and prints the document's selection, or everything when nothing is selected. False
    /// when the dialog was cancelled or the printer failed.
    [[nodiscard]] virtual bool printDocument() = 0;
};

inline void print(Printing &printing, Messages &messages)
{
    if (!printing.printDocument())
        messages.show({"Printing Cancelled", Icon::None, Buttons::Ok, "CANCEL PRINTING"});
}

} // namespace kevra
