// SPDX-License-Identifier: GPL-3.0-or-later
// Colours a whole document: computes the runs, applies them to the surface, and sets the caret, the typing
// colour and the flags.
#pragma once

#include "editor/document_state.h"
#include "editor/surface.h"

#include <future>
#include <string_view>

namespace kevra {

/// Colours that may still be computed: on another core while a large text is loaded, or on request for a
/// small text. The text must outlive them.
using PendingPaint = std::future<Paint>;

class DocumentColouring {
public:
    DocumentColouring(EditedDocument document);

    /// The colours for a text that is about to become the document's.
    [[nodiscard]] PendingPaint tagsOf(std::string_view text) const;
    [[nodiscard]] PendingPaint scriptOf(std::string_view text) const;

    /// Colours every tag in the code colour. Other text keeps its colour; the caret goes to the top
    /// and the document counts as unmodified.
    void colourTags();
    /// The same for a text that has just been loaded.
    void colourTags(PendingPaint paint);
    /// Colours the whole document as a script: everything black, then keywords, placeholders and separator
    /// comments outside string literals. The caret goes to the top.
    void ColourText();
    void ColourText(PendingPaint paint);
    /// Colours tags or a script, depending on the tool set shown.
    void colourForTools();
    /// Makes everything black and moves the caret to the top.
    void removeColours();

private:
    void finishTags();

    EditorSurface &m_surface;
    DocumentState &m_state;
};

} // namespace kevra
