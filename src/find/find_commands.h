// SPDX-License-Identifier: GPL-3.0-or-later
// Find and replace in the document: where a search starts, which message a miss has, what is asked before
// text goes. The dialog gives what was entered and shows the outcome.
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
    /// A hit has just been selected; it must not stay hidden behind the dialog.
    virtual void hitSelected() = 0;
    virtual void showReplaced(Offset count) = 0;
    /// Empty, or that the search has gone round.
    virtual void showRound(std::string_view text) = 0;
};

class FindCommands {
public:
    FindCommands(EditorSurface &document, DocumentState &state, Messages &messages, FindView &view)
        : m_document(document)
        , m_state(state)
        , m_messages(messages)
        , m_view(view)
    {
    }

    void findFirst();
    void findNext();
    /// Back from the last hit; after a miss from the end.
    void findPrevious();
    /// Replaces whatever is selected, found or not.
    void replaceOne();
    /// The same, if there is something selected, and goes on to the next hit behind it.
    void replaceAndFind();
    void replaceAll();
    void countOccurrences();

private:
    [[nodiscard]] std::optional<FindRequest> soundRequest();
    /// False when the user does not want it.
    bool replaceSelection(const FindRequest &request);
    void show(const FindRequest &request, TextRange hit);
    void replace(TextRange range, std::string_view text);

    EditorSurface &m_document;
    DocumentState &m_state;
    Messages &m_messages;
    FindView &m_view;
    Offset m_nextStart = 0;
    std::optional<Offset> m_lastHit;
    bool m_missed = false; ///< the last search in one direction came to the end of the text
};

} // namespace kevra
