// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the document holds a character that the set it is saved in does not have. What is typed is looked
// at when it is typed; the whole text only when the set changes or the character that was found has gone.
#pragma once

#include "editor/surface.h"
#include "encoding/text_format.h"

#include <string>

namespace kevra {

class MisfitWatch {
public:
    explicit MisfitWatch(const EditorSurface &document);

    /// The set is another: everything has to be looked at.
    void restart(const TextFormat &format);
    /// The text has just come out of a file of that format.
    void textRead(const TextFormat &format);
    /// A part of the text is new, at the cost of its own length. `position` and `removed` count in the text
    /// before.
    void textChanged(Offset position, Offset removed, Offset added);
    /// The first such character found; empty when there is none. Goes through the text when it has to.
    [[nodiscard]] std::string misfit();

private:
    [[nodiscard]] bool takesEverything() const;
    void lookAt(TextRange range);

    const EditorSurface &m_document;
    TextFormat m_format;
    std::string m_character; ///< empty: none is known
    Offset m_position = 0;
    bool m_known = false; ///< false: the whole text has to be looked at
};

} // namespace kevra
