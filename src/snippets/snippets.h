// SPDX-License-Identifier: GPL-3.0-or-later
// The ready-made pieces of HTML and VBScript, one row per button.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kevra {

/// How a snippet goes into the document and which colours it gets.
enum class Insertion {
    Tag, ///< in the code colour
    ScriptLine, ///< as script, with its comment when comments are wanted
    Bare, ///< in the typing colour
    Command, ///< inserts nothing: runs the command of the button's name
};

enum class SnippetPanel { Web1, Web2, Script1, Script2 };

struct Snippet {
    std::string_view button; ///< object name
    std::string_view caption;
    Insertion insertion;
    SnippetPanel panel;
    int group; ///< buttons of one group are placed together
    std::string_view text; ///< what is inserted, or what the command's tooltip says
    std::string_view commented = {}; ///< used instead when comments are wanted; empty: same as `text`
};

/// In the order of the buttons on their panels.
[[nodiscard]] std::span<const Snippet> snippets();

/// The name of a panel's frame in the main window.
[[nodiscard]] std::string_view frameName(SnippetPanel panel);

[[nodiscard]] std::string_view textToInsert(const Snippet &snippet, bool withComments);

} // namespace kevra
