// SPDX-License-Identifier: GPL-3.0-or-later
// The user's commands on findings: analyse the text, go to the next, apply a fix.
#pragma once

#include "editor/document_state.h"
#include "editor/line_edits.h"
#include "editor/surface.h"
#include "findings/finding_list.h"
#include "page/document_findings.h"

#include <cstdint>
#include <functional>

namespace kevra {

/// The windows that show findings.
class FindingsView {
public:
    virtual ~FindingsView() = default;

    /// The findings, or the level shown, have changed.
    virtual void showFindings() = 0;
    /// The user went to this finding.
    virtual void showCurrent(std::size_t index) = 0;
    /// In the status row.
    virtual void showNote(std::string_view text) = 0;
    /// Applies an edit as the user's: one undo step, coloured like pasted text.
    virtual void applyEdit(const LineEdit &edit) = 0;
};

/// The document's path and kind: by its extension, or by the tools shown if that is unknown.
[[nodiscard]] page::DocumentPlace placeOf(const DocumentState &document);

/// A fix of a finding, as indices.
struct OfferedFix {
    std::size_t finding;
    std::size_t fix;
};

class FindingsCommands {
public:
    using Revision = std::uint64_t;

    /// `place` returns the document's current path and kind.
    FindingsCommands(EditorSurface &surface, FindingsView &view, std::function<page::DocumentPlace()> place);

    [[nodiscard]] FindingList &list() { return m_list; }
    [[nodiscard]] Revision revision() const { return m_revision; } ///< of the document's text

    void textChanged(Offset position, Offset removed, Offset added);
    /// Takes the result for a copy of the text, unless the text has changed since.
    void accept(std::vector<script::Finding> findings, Revision revision);
    /// Call when the list of findings becomes visible.
    void listOpened();
    /// Waits for the result. Does nothing if the findings are up to date.
    void analyseNow();
    void forget();
    void setLevel(script::Level least);

    void goToNext();
    void goToPrevious();
    void goTo(std::size_t index);
    void goToPlace(Offset position);

    /// The fixes of the findings at the caret, else on its line, for the current text.
    [[nodiscard]] std::vector<OfferedFix> fixesAtCaret();
    /// Only shows a message if the text has changed so that the fix no longer applies.
    void applyFix(OfferedFix offered);

    [[nodiscard]] Offset lineOf(std::size_t index) const; ///< from 1
    [[nodiscard]] std::string lineText(std::size_t index) const; ///< as copied from the list

private:
    void visit(std::optional<std::size_t> index);
    [[nodiscard]] std::vector<OfferedFix> fixesIn(TextRange range) const;

    EditorSurface &m_surface;
    FindingsView &m_view;
    std::function<page::DocumentPlace()> m_place;
    page::DocumentAnalysis m_analysis;
    FindingList m_list;
    Revision m_revision = 1;
    Revision m_analysed = 0;
    std::optional<std::size_t> m_current;
};

/// The fix as one edit; anchor and caret stay with their text.
[[nodiscard]] LineEdit editOf(const script::Fix &fix, std::string_view text, TextRange selection);

} // namespace kevra
