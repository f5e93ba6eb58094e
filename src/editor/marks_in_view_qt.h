// SPDX-License-Identifier: GPL-3.0-or-later
// Scintilla indicators for the text in view, redrawn shortly after the text, the view or the marks change.
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

    /// The marks may have changed.
    void refresh();

protected:
    /// Uses these indicators exclusively; the caller sets their style.
    MarksInView(EditorControl &control, std::vector<unsigned long> indicators);

    /// Filters the events of the control's viewport.
    bool eventFilter(QObject *watched, QEvent *event) override;
    [[nodiscard]] EditorControl &control() const { return m_control; }

private:
    /// Whether there may be marks. Called at every change, so it must be cheap.
    [[nodiscard]] virtual bool hasMarks() const = 0;
    [[nodiscard]] virtual std::vector<Mark> marksIn(TextRange view) const = 0;

    void draw();
    void clear();

    EditorControl &m_control;
    std::vector<unsigned long> m_indicators;
    QTimer m_soon; ///< draws many changes at once
    bool m_drawn = false;
};

} // namespace kevra
