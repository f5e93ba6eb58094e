// SPDX-License-Identifier: GPL-3.0-or-later
// The findings of a document: their positions while the text is edited, which are shown, which is next, and
// their wording.
#pragma once

#include "script/finding.h"

#include <optional>
#include <string>
#include <vector>

namespace kevra {

class FindingList {
public:
    /// The result of an analysis, ascending by start. Replaces all findings.
    void replace(std::vector<script::Finding> findings);
    /// Drops all findings until the next analysis.
    void forget();
    /// Whether there has been an analysis since forget().
    [[nodiscard]] bool known() const { return m_known; }

    /// `position` and `removed` refer to the old text. The cost does not depend on the number of findings:
    /// they are moved at the next access.
    void textChanged(Offset position, Offset removed, Offset added);

    /// Findings below this level are not shown, counted or visited.
    void setLevel(script::Level least);
    [[nodiscard]] script::Level level() const { return m_level; }

    /// The findings shown, ascending by start. An index is valid until the next change.
    [[nodiscard]] std::size_t size() const { return m_shown.size(); }
    [[nodiscard]] const script::Finding &at(std::size_t index) const;
    /// Where the first of them begin, `count` at most.
    [[nodiscard]] std::vector<Offset> firstPlaces(std::size_t count) const;
    /// The findings that overlap or touch the range.
    [[nodiscard]] std::vector<std::size_t> touching(TextRange range) const;

    /// The finding after or before the caret, wrapping around. `current` is the one visited last: it
    /// distinguishes several that begin at the caret.
    [[nodiscard]] std::optional<std::size_t> next(Offset caret, std::optional<std::size_t> current) const;
    [[nodiscard]] std::optional<std::size_t> previous(Offset caret, std::optional<std::size_t> current) const;

    /// "Analysis: no findings" or "3 findings"; empty while nothing is known.
    [[nodiscard]] std::string summary() const;

private:
    struct Change {
        Offset position;
        Offset removed;
        Offset added;
    };

    void choose();
    void applyChanges() const;
    [[nodiscard]] Offset start(std::size_t index) const { return at(index).range.start; }

    mutable std::vector<script::Finding> m_findings;
    mutable std::vector<Change> m_changes; ///< not applied to m_findings yet
    std::vector<std::size_t> m_shown; ///< indices of m_findings
    script::Level m_level = script::Level::Hint;
    bool m_known = false;
};

/// "Line 12: error KV1001: ...", as the list is copied. `line` counts from 1.
[[nodiscard]] std::string findingLine(const script::Finding &finding, Offset line);

} // namespace kevra
