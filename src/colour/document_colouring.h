// SPDX-License-Identifier: GPL-3.0-or-later
// Whole-document colouring as the commands use it: compute the runs, hand them to the surface, leave caret,
// typing colour and flags as a colouring leaves them.
#pragma once

#include "editor/document_state.h"
#include "editor/surface.h"

#include <future>
#include <string_view>

namespace kevra {

/// Colours that may still be being computed. A large text's are, on another core, while it is loaded; a small
/// one's are computed when they are asked for. The text must outlive them.
using PendingPaint = std::future<Paint>;

class DocumentColouring {
public:
    DocumentColouring(EditorSurface &document, DocumentState &state);

    /// The colours for a text that is about to become the document's.
    [[nodiscard]] PendingPaint tagsOf(std::string_view text) const;
    [[nodiscard]] PendingPaint scriptOf(std::string_view text) const;

    /// Colours every tag in the code colour. Text that is no tag keeps its colour; the caret goes to the top
    /// and the document counts as unmodified.
    void colourTags();
    /// The same for a text that has just been loaded.
    void colourTags(PendingPaint paint);
    /// Colours the whole document as a script: everything black, then keywords, placeholders and separator
    /// comments outside string literals. The caret goes to the top.
    void ColourText();
    void ColourText(PendingPaint paint);
    /// One of the two, as the tool set that is shown says.
    void colourForTools();
    /// Everything black, the caret at the top.
    void removeColours();

private:
    void finishTags();

    EditorSurface &m_document;
    DocumentState &m_state;
};

} // namespace kevra
