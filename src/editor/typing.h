// SPDX-License-Identifier: GPL-3.0-or-later
// What the document control tells the colouring of the user's own edits.
#pragma once

#include "text/types.h"

namespace kevra {

/// Where a change of the text came from.
enum class EditKind { Program, Typing, Paste, Cut, Delete, Undo, Redo, Drop, Command };

/// Key codes as keyReleased() has them.
namespace keys {
inline constexpr int enter = 13;
inline constexpr int del = 46;
} // namespace keys

class TypingHandler {
public:
    virtual ~TypingHandler() = default;

    /// The character that is about to be inserted at the caret, from a key or an input method; Return is
    /// '\r'. The selection still stands. A typing colour set now is the character's colour.
    virtual void keyTyped(char32_t character) = 0;
    /// The control has acted on the key. Called for Return and Delete.
    virtual void keyReleased(int key) = 0;
    /// A user's edit is done: `touched` is what it changed, in positions of the text as it is now; empty
    /// where text only went away. What paste, undo, redo and drop put in is black.
    virtual void edited(TextRange touched, EditKind kind) = 0;
    /// The user has put the caret somewhere else, other than by typing.
    virtual void caretPlaced() { }
    /// The user has pressed the mouse's left button in the text.
    virtual void clicked() { }
};

} // namespace kevra
