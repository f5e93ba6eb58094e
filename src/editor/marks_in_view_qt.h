// SPDX-License-Identifier: GPL-3.0-or-later
// Indicators for what is in view, drawn anew soon after the text, the part in view or what is marked has
// changed. The colours of the text stay as they are.
#pragma once

#include "editor/editor_control_qt.h"

#include <QtCore/QTimer>

#include <vector>

namespace kevra {

class MarksInView : public QObject {
public:
    struct Mark {
        TextRange range;
        unsigned long indicator;
    };

    /// What is marked may have changed.
    void refresh();

protected:
    /// Draws with these indicators, which no one else uses; how they look is for the caller to set.
    MarksInView(EditorControl &document, std::vector<unsigned long> indicators);

    /// Filters the events of the document's viewport.
    bool eventFilter(QObject *watched, QEvent *event) override;
    [[nodiscard]] EditorControl &document() const { return m_document; }

private:
    /// Whether anything may have to be marked; asked at every change, so it has to be cheap.
    [[nodiscard]] virtual bool hasMarks() const = 0;
    [[nodiscard]] virtual std::vector<Mark> marksIn(TextRange view) const = 0;

    void draw();
    void clear();

    EditorControl &m_document;
    std::vector<unsigned long> m_indicators;
    QTimer m_soon; ///< many changes are drawn once
    bool m_drawn = false;
};

} // namespace kevra
