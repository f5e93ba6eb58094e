// SPDX-License-Identifier: GPL-3.0-or-later
// Groups keystrokes into undo steps: one word or one run of spaces, typed at one place without a pause.
#pragma once

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

/// The class of a character; a tab is a space.
[[nodiscard]] Stroke::Kind strokeKind(char32_t character);

class UndoSteps {
public:
    using Milliseconds = std::uint64_t; ///< since any epoch; 0 means unknown

    /// Whether a stroke begins a new step.
    [[nodiscard]] bool begins(Stroke stroke, Milliseconds time);
    /// The next stroke begins a new step: the caret has moved, or something else has changed the text.
    void end() { m_last.reset(); }

private:
    std::optional<Stroke> m_last;
    Milliseconds m_time = 0;
};

} // namespace kevra
