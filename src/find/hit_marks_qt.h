// SPDX-License-Identifier: GPL-3.0-or-later
// A mark under every hit in view while the find dialog is open; the colours of the text stay as they are.
#pragma once

#include "editor/editor_control_qt.h"
#include "find/find_request.h"

#include <QtCore/QTimer>

#include <functional>
#include <optional>

namespace kevra {

class HitMarks : public QObject {
public:
    /// `wanted` is what is looked for now; nothing takes the marks away.
    HitMarks(EditorControl &document, std::function<std::optional<FindRequest>()> wanted);

    /// What is wanted may have changed.
    void refresh();

private:
    void mark();
    bool eventFilter(QObject *watched, QEvent *event) override;

    EditorControl &m_document;
    std::function<std::optional<FindRequest>()> m_wanted;
    QTimer m_soon; ///< many changes are marked once
    bool m_marked = false;
};

} // namespace kevra
