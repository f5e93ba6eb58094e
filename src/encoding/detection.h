// SPDX-License-Identifier: GPL-3.0-or-later
// Which character set the bytes of a file are in: by their mark, by what they declare, as UTF-8, by a guess,
// else Windows-1252.
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
