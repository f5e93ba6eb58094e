// SPDX-License-Identifier: GPL-3.0-or-later
// What one command changes in a control's text: the kind of command, the change announced but not made yet,
// and the range that all its changes have touched. Independent of the control.
#pragma once

#include "editor/typing.h"

#include <optional>

namespace kevra {

/// Replaces `removed` bytes at `position` by `added` bytes; `position` refers to the old text.
struct TextChange {
    Offset position = 0;
    Offset removed = 0;
    Offset added = 0;
};

class CommandChanges {
public:
    /// False within another command, which this one is then part of.
    [[nodiscard]] bool begin(EditKind kind);
    /// Ends the outermost command. Returns what it has touched, as a range of the current text; nothing if it
    /// changed nothing.
    [[nodiscard]] std::optional<TextRange> end();
    [[nodiscard]] bool inCommand() const { return m_inCommand; }
    /// The kind of the current command; Program between commands.
    [[nodiscard]] EditKind kind() const { return m_kind; }

    /// The control is about to make this change, and will have made it before the next call.
    void announce(TextChange change) { m_announced = change; }
    /// The announced change has been made: returns it, or nothing if there is none. `added` corrects the
    /// announced length, for insertions that contained breaks; a change without any text is dropped.
    [[nodiscard]] std::optional<TextChange> settle(std::optional<Offset> added = {});
    /// Adds to what was touched without an announced change.
    void touch(TextChange change);

private:
    EditKind m_kind = EditKind::Program;
    bool m_inCommand = false;
    std::optional<TextChange> m_announced;
    std::optional<TextRange> m_touched;
};

} // namespace kevra
