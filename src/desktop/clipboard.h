// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kevra {

/// The desktop's clipboard, text only, UTF-8.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    /// With the document's line breaks, whatever the other program's; empty when it holds no text.
    [[nodiscard]] virtual std::string text() const = 0;
    virtual void clear() = 0;
    /// Line breaks become the desktop's.
    virtual void setText(std::string_view text) = 0;
};

} // namespace kevra
