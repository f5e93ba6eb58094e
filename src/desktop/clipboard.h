// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kevra {

/// The desktop's clipboard, text only, UTF-8.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    /// The clipboard's text with CRLF line breaks; empty when it holds no text.
    [[nodiscard]] virtual std::string readText() const = 0;
    virtual void clear() = 0;
    /// Converts CRLF line breaks to line feeds.
    virtual void setText(std::string_view text) = 0;
};

} // namespace kevra
