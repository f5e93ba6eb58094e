// SPDX-License-Identifier: GPL-3.0-or-later
// Tracks whether the document has a character that its encoding cannot represent. Edits are checked as they
// happen; the whole text only when the encoding changes or the character found was removed.
#pragma once

#include "editor/surface.h"
#include "encoding/text_format.h"

#include <string>

namespace kevra {

class MisfitWatch {
public:
    explicit MisfitWatch(const EditorSurface &surface);

    /// The encoding changed: the whole text has to be checked.
    void restart(const TextFormat &format);
    /// The text was just read from a file of that format.
    void textRead(const TextFormat &format);
    /// Part of the text changed; takes time proportional to `added`. `position` and `removed` refer to the
    /// old text.
    void textChanged(Offset position, Offset removed, Offset added);
    /// A character that the encoding cannot represent; empty if there is none. Scans the text if necessary.
    [[nodiscard]] std::string misfit();

private:
    [[nodiscard]] bool encodesEverything() const;
    void scan(TextRange range);

    const EditorSurface &m_surface;
    TextFormat m_format;
    std::string m_character; ///< empty: none is known
    Offset m_position = 0;
    bool m_known = false; ///< false: the whole text has to be scanned
};

} // namespace kevra
