// SPDX-License-Identifier: GPL-3.0-or-later
// The findings of the document in the window, kept where they belong while the text is edited: which of them
// are shown, which comes next, and how they read.
#pragma once

#include "script/finding.h"

#include <optional>
#include <string>
#include <vector>

namespace kevra {

class FindingList {
public:
    /// As the analysis gives them, ascending by place. What it does not return is gone.
    void replace(std::vector<script::Finding> findings);
    /// Nothing is known about the text any more.
    void forget();
    /// Whether the text has been analysed since it was last forgotten.
    [[nodiscard]] bool known() const { return m_known; }

    /// `position` and `removed` count in the text before. The cost does not depend on the number of findings:
    /// they are moved when somebody next looks at one.
    void textChanged(Offset position, Offset removed, Offset added);

    /// Findings below this level are not shown, counted or visited.
    void setLevel(script::Level least);
    [[nodiscard]] script::Level level() const { return m_level; }

    /// Those shown, ascending by place; an index holds until the next change.
    [[nodiscard]] std::size_t size() const { return m_shown.size(); }
    [[nodiscard]] const script::Finding &at(std::size_t index) const;
    /// Those that begin in the range or reach into it.
    [[nodiscard]] std::vector<std::size_t> touching(TextRange range) const;

    /// The finding to go to from the caret, round the end of the text. `current` is the one visited last: of
    /// several that begin at the caret the next one follows.
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
    mutable std::vector<Change> m_changes; ///< that the findings have not followed yet
    std::vector<std::size_t> m_shown; ///< indices of m_findings
    script::Level m_level = script::Level::Hint;
    bool m_known = false;
};

/// "Line 12: error KV1001: ...", as the list is copied. `line` counts from 1.
[[nodiscard]] std::string findingLine(const script::Finding &finding, Offset line);

} // namespace kevra
