// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does with findings: has the text analysed, goes from one to the next, takes a fix.
#pragma once

#include "editor/document_state.h"
#include "editor/line_edits.h"
#include "editor/surface.h"
#include "findings/finding_list.h"
#include "page/document_findings.h"

#include <cstdint>
#include <functional>

namespace kevra {

/// What the findings ask of the windows.
class FindingsView {
public:
    virtual ~FindingsView() = default;

    /// The findings are others, or others are shown.
    virtual void showFindings() = 0;
    /// The finding the user is at.
    virtual void showCurrent(std::size_t index) = 0;
    /// In the status row.
    virtual void tell(std::string_view text) = 0;
    /// Carries an edit out as the user's own: one step of undo, coloured as text that was pasted is.
    virtual void applyEdit(const LineEdit &edit) = 0;
};

/// Where the document is, and of what kind: by its path or, where that does not say, by the tools shown.
[[nodiscard]] page::DocumentPlace placeOf(const DocumentState &document);

/// A fix of a finding, by their indices.
struct OfferedFix {
    std::size_t finding;
    std::size_t fix;
};

class FindingsCommands {
public:
    using Revision = std::uint64_t;

    /// `place` says what the document is at the time.
    FindingsCommands(EditorSurface &document, FindingsView &view, std::function<page::DocumentPlace()> place);

    [[nodiscard]] FindingList &list() { return m_list; }
    [[nodiscard]] Revision revision() const { return m_revision; } ///< of the document's text

    void textChanged(Offset position, Offset removed, Offset added);
    /// What the analysis of a copy found; dropped when the text has changed since the copy was made.
    void accept(std::vector<script::Finding> findings, Revision revision);
    /// Waits for the result. Does nothing where the findings are those of the text as it is.
    void analyseNow();
    void forget();
    void setLevel(script::Level least);

    void goToNext();
    void goToPrevious();
    void goTo(std::size_t index);
    void goToPlace(Offset position);

    /// The fixes of the findings at the caret or, where there are none, on its line; of the text as it is
    /// now.
    [[nodiscard]] std::vector<OfferedFix> fixesAtCaret();
    /// Nothing happens but a word in the status row when the text has changed so that the fix is no longer
    /// one.
    void applyFix(OfferedFix offered);

    [[nodiscard]] Offset lineOf(std::size_t index) const; ///< from 1
    [[nodiscard]] std::string lineText(std::size_t index) const; ///< as the list is copied

private:
    void visit(std::optional<std::size_t> index);
    [[nodiscard]] std::vector<OfferedFix> fixesIn(TextRange range) const;

    EditorSurface &m_document;
    FindingsView &m_view;
    std::function<page::DocumentPlace()> m_place;
    page::DocumentAnalysis m_analysis;
    FindingList m_list;
    Revision m_revision = 1;
    Revision m_analysed = 0;
    std::optional<std::size_t> m_current;
};

/// One edit that does what the fix does; anchor and caret stay with their text.
[[nodiscard]] LineEdit editOf(const script::Fix &fix, std::string_view text, TextRange selection);

} // namespace kevra
