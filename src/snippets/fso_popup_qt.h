// SPDX-License-Identifier: GPL-3.0-or-later
// The menu of FileSystemObject methods that opens at the caret when "fso." is typed in a script.
#pragma once

#include "editor/document_state.h"
#include "text/types.h"

#include <QtCore/QObject>
#include <QtCore/QPoint>

class QAction;
class QMenu;

namespace kevra {

class EditorControl;

class FsoPopup : public QObject {
public:
    /// `menu` holds the method names as its items; choosing one inserts it.
    FsoPopup(EditorControl &control, const DocumentState &state, QMenu &menu);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void openAtCaret();
    void insert(const QAction &method);
    void filter();
    [[nodiscard]] QPoint place() const;

    EditorControl &m_control;
    const DocumentState &m_state;
    QMenu &m_menu;
    Offset m_start = 0; ///< after the full stop that opened the menu
};

} // namespace kevra
