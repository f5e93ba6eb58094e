// SPDX-License-Identifier: GPL-3.0-or-later
// The buttons of one snippet panel, placed in the frame that the main window has for it.
#pragma once

#include "snippets/snippets.h"

#include <functional>

class QFrame;

namespace kevra {

struct SnippetPanelHooks {
    std::function<void(const Snippet &)> chosen;
    std::function<bool()> withComments; ///< asked whenever a tooltip is shown
    std::function<bool(std::string_view button)> isBound; ///< whether a command's button can do anything
};

void fillSnippetPanel(QFrame &frame, SnippetPanel panel, const SnippetPanelHooks &hooks);

} // namespace kevra
