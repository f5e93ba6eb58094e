// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/types.h"

#include <QtCore/QObject>

#include <utility>
#include <vector>

namespace kevra {

class EditorControl;

/// Keeps the line-number column `t2` aligned with the document however it scrolls, with as many numbers as
/// the document has lines. Costs nothing while the column is hidden.
class LineNumberColumn : public QObject {
public:
    LineNumberColumn(EditorControl &control, EditorControl &column);

    void align();

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void holdEnoughNumbers();
    void followDocument();
    /// The document line at the column's first number while `line` is the first visible one.
    [[nodiscard]] Offset firstLineHeld(Offset line) const;
    /// Empty lines after the number of a wrapped line.
    using Gap = std::pair<Offset, Offset>; ///< the column's line, and their number
    struct Top {
        Offset line = 0; ///< the first visible one
        Offset rowsAbove = 0; ///< how many of its rows are scrolled out of view
    };
    [[nodiscard]] std::vector<Gap> visibleGaps(const Top &top) const;
    /// How many of these rows the column has as well.
    [[nodiscard]] Offset heldAbove(const Top &top) const;
    void showGaps(const std::vector<Gap> &gaps);
    void clearGaps();
    /// Greys the numbers after the document's last line.
    void greyBelow(Offset lines);
    void followZoom();

    EditorControl &m_control;
    EditorControl &m_column;
    int m_numbers = 0;
    Offset m_black = 0; ///< the numbers that are black
    std::vector<Gap> m_gaps;
    bool m_aligning = false;
};

} // namespace kevra
