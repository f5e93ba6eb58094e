// SPDX-License-Identifier: GPL-3.0-or-later
// Detects the character set of a file, in this order: byte-order mark, declaration, valid UTF-8, a reliable
// guess, else Windows-1252.
#pragma once

#include "encoding/text_format.h"

#include <optional>
#include <string_view>

namespace kevra {

struct Detected {
    Encoding encoding = Encoding::Windows1252;
    bool mark = false;
    std::optional<Encoding> declared;
    bool guessed = false;
};

[[nodiscard]] Detected detect(std::string_view bytes, TextKind kind);

} // namespace kevra
