// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/types.h"

#include <QtCore/QObject>

#include <utility>
#include <vector>

namespace kevra {

class EditorControl;

/// Keeps the line-number column `t2` level with the document, by whatever means it scrolls, and gives it as
/// many numbers as the document has lines. Costs nothing while the column is hidden.
class LineNumberColumn : public QObject {
public:
    LineNumberColumn(EditorControl &document, EditorControl &column);

    void level();

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void holdEnoughNumbers();
    void followDocument();
    /// The document's line beside which the column's first one stands while `line` is the first one shown.
    [[nodiscard]] Offset firstLineHeld(Offset line) const;
    /// A line that is shown as several leaves as many places empty under its number.
    using Gap = std::pair<Offset, Offset>; ///< the line of the column, and how many
    [[nodiscard]] std::vector<Gap> visibleGaps(Offset firstLine) const;
    void showGaps(const std::vector<Gap> &gaps);
    void clearGaps();
    /// Numbers that no line of the document stands beside are grey.
    void greyBelow(Offset lines);
    void followZoom();

    EditorControl &m_document;
    EditorControl &m_column;
    int m_numbers = 0;
    Offset m_black = 0; ///< how many of them are
    std::vector<Gap> m_gaps;
    bool m_levelling = false;
};

} // namespace kevra
