// SPDX-License-Identifier: GPL-3.0-or-later
// What one command changes in a control's text: whose command it is, the change that the control has
// announced and not yet made, and the stretch that all of its changes have touched. It asks nothing of the
// control.
#pragma once

#include "editor/typing.h"

#include <optional>

namespace kevra {

/// `removed` bytes from `position` on give way to `added` others; counted in the text before.
struct TextChange {
    Offset position = 0;
    Offset removed = 0;
    Offset added = 0;
};

class CommandChanges {
public:
    /// False within another command, of which this one is a part.
    [[nodiscard]] bool begin(EditKind kind);
    /// Ends the outermost command: what it has touched, in positions of the text as it is now; nothing when
    /// it changed nothing.
    [[nodiscard]] std::optional<TextRange> end();
    [[nodiscard]] bool inCommand() const { return m_inCommand; }
    /// Of the command under way; Program between commands.
    [[nodiscard]] EditKind kind() const { return m_kind; }

    /// The control is about to make this change, and has made it by the time anything else happens.
    void announce(TextChange change) { m_announced = change; }
    /// The announced change counts as made from now on; nothing when there is none. `added` is what has come
    /// in, where the control knows better than when it announced it: nothing at all, when it was no text.
    [[nodiscard]] std::optional<TextChange> settle(std::optional<Offset> added = {});
    /// A stretch counts as touched that no change announces.
    void touch(TextChange change);

private:
    EditKind m_kind = EditKind::Program;
    bool m_inCommand = false;
    std::optional<TextChange> m_announced;
    std::optional<TextRange> m_touched;
};

} // namespace kevra
