// SPDX-License-Identifier: GPL-3.0-or-later
// A wavy line under every finding in view, and what it says while the pointer rests there; the colours of the
// text stay as they are.
#pragma once

#include "editor/editor_control_qt.h"
#include "findings/finding_list.h"

#include <QtCore/QTimer>

class QHelpEvent;

namespace kevra {

/// The colour a level has wherever it is shown.
[[nodiscard]] Colour colourOf(script::Level level);

class FindingMarks : public QObject {
public:
    FindingMarks(EditorControl &document, const FindingList &list);

    /// The findings or the part in view may have changed.
    void refresh();

private:
    void mark();
    void clear();
    void showTip(const QHelpEvent &event);
    [[nodiscard]] TextRange markedPart(TextRange range) const;
    bool eventFilter(QObject *watched, QEvent *event) override;

    EditorControl &m_document;
    const FindingList &m_list;
    QTimer m_soon; ///< many changes are marked once
    bool m_marked = false;
};

} // namespace kevra
