// SPDX-License-Identifier: GPL-3.0-or-later
// Which keystrokes undo takes back together: those of one word or one run of spaces, made at one place
// without a pause.
#pragma once

#include "editor/line_edits.h"

#include <cstdint>
#include <optional>

namespace kevra {

struct Stroke {
    enum class Action { Insert, DeleteBack, DeleteForward };
    enum class Kind { Word, Space, LineBreak };

    Action action;
    Kind kind;

    friend bool operator==(const Stroke &, const Stroke &) = default;
};

/// What a character counts as; a tab is a space.
[[nodiscard]] Stroke::Kind strokeKind(char32_t character);

class UndoSteps {
public:
    using Milliseconds = std::uint64_t; ///< from any start; 0 stands for an unknown time

    /// Whether a stroke begins a step of its own, made with this anchor and caret before it.
    [[nodiscard]] bool begins(Stroke stroke, Milliseconds time, AnchorAndCaret place);
    /// Where the stroke has left anchor and caret.
    void strokeDone(AnchorAndCaret place) { m_place = place; }
    /// The next stroke begins a step.
    void end() { m_last.reset(); }

private:
    std::optional<Stroke> m_last;
    Milliseconds m_time = 0;
    AnchorAndCaret m_place;
};

} // namespace kevra
