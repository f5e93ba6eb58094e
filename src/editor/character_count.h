// SPDX-License-Identifier: GPL-3.0-or-later
// Counts the characters of a surface's text without a pass over it at every change. The owner of the text
// announces the changes.
#pragma once

#include "editor/surface.h"

#include <optional>

namespace kevra {

class CharacterCount {
public:
    explicit CharacterCount(const EditorSurface &surface)
        : m_surface(surface)
    {
    }

    /// A line break counts two. The first call for a text costs a pass over it.
    [[nodiscard]] Offset all() const;
    /// From the start of a line to a position on it. Counts from the position of the last call.
    [[nodiscard]] Offset between(Offset lineStart, Offset position) const;

    /// Another text replaces the old one.
    void reset()
    {
        m_all.reset();
        m_counted = {};
    }
    /// The text from `position` on is about to change.
    void aboutToChange(Offset position);
    void aboutToRemove(TextRange range);
    void inserted(TextRange range);

private:
    struct Counted {
        Offset lineStart = 0;
        Offset position = 0;
        Offset characters = 0; ///< between the two
    };

    void countTo(Offset position) const;

    const EditorSurface &m_surface;
    mutable std::optional<Offset> m_all; ///< set by the first call of all()
    mutable Counted m_counted;
};

} // namespace kevra
