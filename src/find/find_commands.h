// SPDX-License-Identifier: GPL-3.0-or-later
// Find and replace in the document: where a search starts, its messages, and the question before text is
// deleted. The dialog supplies the input and shows the outcome.
#pragma once

#include "editor/document_state.h"
#include "editor/surface.h"
#include "find/find_request.h"

#include <optional>
#include <string_view>

namespace kevra {

class FindView {
public:
    virtual ~FindView() = default;
    [[nodiscard]] virtual FindRequest entered() const = 0;
    virtual void showCount(Offset count) = 0;
    /// A hit was selected; the dialog must not cover it.
    virtual void hitSelected() = 0;
    virtual void showReplaced(Offset count) = 0;
    /// A note that the search wrapped around; empty clears it.
    virtual void showWrapped(std::string_view text) = 0;
};

class FindCommands {
public:
    FindCommands(EditedDocument document, Messages &messages, FindView &view)
        : m_surface(document.surface)
        , m_state(document.state)
        , m_messages(messages)
        , m_view(view)
    {
    }

    void findFirst();
    void findNext();
    /// Searches backwards from the last hit, or from the end after a miss.
    void findPrevious();
    /// Replaces the selection, even if no search found it.
    void replaceOne();
    /// The same if there is a selection, then finds the next hit after it.
    void replaceAndFind();
    void replaceAll();
    void countOccurrences();

private:
    [[nodiscard]] std::optional<FindRequest> usableRequest();
    /// False when the expression is invalid or the user declined.
    bool replaceSelection(const FindRequest &request);
    void show(const FindRequest &request, TextRange hit);
    void replaceRange(TextRange range, std::string_view text);

    EditorSurface &m_surface;
    DocumentState &m_state;
    Messages &m_messages;
    FindView &m_view;
    Offset m_nextStart = 0;
    std::optional<Offset> m_lastHit;
    bool m_reachedEnd = false; ///< the last search reached the end of the text
};

} // namespace kevra
