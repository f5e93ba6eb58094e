// SPDX-License-Identifier: GPL-3.0-or-later
// Colours text while the user types: a tag when its "<" or ">" is typed, a line of a script when Return ends
// it. The cost does not depend on the size of the document.
#pragma once

#include "desktop/main_view.h"
#include "editor/document_state.h"
#include "editor/surface.h"
#include "editor/typing.h"

#include <functional>

namespace kevra {

class TypingColouring : public TypingHandler {
public:
    /// `checkFinishedLine` receives the line that Return has ended, including its line break.
    TypingColouring(
        EditedDocument document, MainView &view, std::function<void(TextRange)> checkFinishedLine);

    void keyTyped(char32_t character) override;
    void keyReleased(int key) override;
    void edited(TextRange touched, EditKind kind) override;
    void caretPlaced() override;
    void clicked() override;

private:
    void typeInPage(char32_t character);
    void paintTagOpenedAt(TextRange selection);
    void paintTagClosedAt(Offset caret);
    void typeAfterTag();
    void finishLine();
    void noteTyped(TextRange typed);
    [[nodiscard]] Colour colourAroundCaret() const;

    EditorSurface &m_surface;
    DocumentState &m_state;
    MainView &m_view;
    std::function<void(TextRange)> m_checkFinishedLine;
    bool m_tagClosed = false; ///< a ">" was the last character typed
};

} // namespace kevra
