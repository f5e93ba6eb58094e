// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/printing.h"
#include "text/types.h"

class QPrinter;

namespace kevra {

class EditorControl;

class PrintingQt : public Printing {
public:
    explicit PrintingQt(EditorControl &control)
        : m_control(control)
    {
    }

    [[nodiscard]] bool printDocument() override;
    /// Prints a range of the text in its colours, wrapped at the page width.
    [[nodiscard]] bool print(QPrinter &printer, TextRange range);

private:
    EditorControl &m_control;
};

} // namespace kevra
