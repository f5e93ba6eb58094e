// SPDX-License-Identifier: GPL-3.0-or-later
// Marks every hit in view while the find dialog is open.
#pragma once

#include "editor/marks_in_view_qt.h"
#include "find/find_request.h"

#include <functional>
#include <optional>

namespace kevra {

class HitMarks : public MarksInView {
public:
    /// `currentRequest` returns the current request; without one the marks are removed.
    HitMarks(EditorControl &control, std::function<std::optional<FindRequest>()> currentRequest);

private:
    [[nodiscard]] bool hasMarks() const override { return m_currentRequest().has_value(); }
    [[nodiscard]] std::vector<Mark> marksIn(TextRange view) const override;

    std::function<std::optional<FindRequest>()> m_currentRequest;
};

} // namespace kevra
