// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/clipboard.h"

namespace kevra {

class ClipboardQt : public Clipboard {
public:
    [[nodiscard]] std::string readText() const override;
    void clear() override;
    void setText(std::string_view text) override;
};

} // namespace kevra
