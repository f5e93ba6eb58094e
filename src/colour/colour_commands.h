// SPDX-License-Identifier: GPL-3.0-or-later
// Colour coding on and off, from menu and toolbar. The stored setting stays as it is.
#pragma once

#include "colour/document_colouring.h"
#include "desktop/main_view.h"

namespace kevra {

class ColourCommands {
public:
    ColourCommands(EditedDocument document, ToolView &tools)
        : m_surface(document.surface)
        , m_state(document.state)
        , m_tools(tools)
        , m_colouring(document)
    {
    }

    /// Colours a document of any type, as a page or a script depending on the tool set shown.
    void colourOn()
    {
        m_state.options.colourCoding = true;
        m_state.colourApplies = true;
        m_tools.showOption(Option::ColourCoding, true);
        if (m_surface.TextLength() == 0)
            return;
        const BusySurface busy(m_surface);
        m_colouring.colourForTools();
    }

    void colourOff()
    {
        m_state.options.colourCoding = false;
        m_tools.showOption(Option::ColourCoding, false);
        const BusySurface busy(m_surface);
        m_colouring.removeColours();
    }

private:
    EditorSurface &m_surface;
    DocumentState &m_state;
    ToolView &m_tools;
    DocumentColouring m_colouring;
};

} // namespace kevra
