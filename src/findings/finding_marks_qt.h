// SPDX-License-Identifier: GPL-3.0-or-later
// A wavy line under every finding in view, and its message as a tool tip.
#pragma once

#include "editor/marks_in_view_qt.h"
#include "findings/finding_list.h"

class QHelpEvent;

namespace kevra {

/// The colour that a level has everywhere.
[[nodiscard]] Colour colourOf(script::Level level);

class FindingMarks : public MarksInView {
public:
    FindingMarks(EditorControl &control, const FindingList &list);

private:
    [[nodiscard]] bool hasMarks() const override { return m_list.size() > 0; }
    [[nodiscard]] std::vector<Mark> marksIn(TextRange view) const override;
    void showTip(const QHelpEvent &event);
    [[nodiscard]] TextRange markedPart(TextRange range) const;
    bool eventFilter(QObject *watched, QEvent *event) override;

    const FindingList &m_list;
};

} // namespace kevra
