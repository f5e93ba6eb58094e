// SPDX-License-Identifier: GPL-3.0-or-later
// The document control's notifications about the user's edits, for the colouring.
#pragma once

#include "text/types.h"

namespace kevra {

/// The source of a change of the text.
enum class EditKind { Program, Typing, Paste, Cut, Delete, Undo, Redo, Drop, Command };

/// Key codes passed to keyReleased().
namespace keys {
inline constexpr int enter = 13;
inline constexpr int del = 46;
} // namespace keys

class TypingHandler {
public:
    virtual ~TypingHandler() = default;

    /// A character from a key or an input method is about to replace the selection; Return is '\r'. It gets
    /// the typing colour set now.
    virtual void keyTyped(char32_t character) = 0;
    /// The control has processed the key. Called for Return and Delete.
    virtual void keyReleased(int key) = 0;
    /// A user's edit has changed `touched`, a range of the current text, empty if text was only removed. Text
    /// from paste, undo, redo and drop is black.
    virtual void edited(TextRange touched, EditKind kind) = 0;
    /// The user has moved the caret other than by typing.
    virtual void caretPlaced() { }
    /// The user has pressed the left mouse button in the text.
    virtual void clicked() { }
};

} // namespace kevra
