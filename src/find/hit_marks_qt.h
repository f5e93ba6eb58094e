// SPDX-License-Identifier: GPL-3.0-or-later
// A mark under every hit in view while the find dialog is open.
#pragma once

#include "editor/marks_in_view_qt.h"
#include "find/find_request.h"

#include <functional>
#include <optional>

namespace kevra {

class HitMarks : public MarksInView {
public:
    /// `wanted` is what is looked for now; nothing takes the marks away.
    HitMarks(EditorControl &document, std::function<std::optional<FindRequest>()> wanted);

private:
    [[nodiscard]] bool hasMarks() const override { return m_wanted().has_value(); }
    [[nodiscard]] std::vector<Mark> marksIn(TextRange view) const override;

    std::function<std::optional<FindRequest>()> m_wanted;
};

} // namespace kevra
