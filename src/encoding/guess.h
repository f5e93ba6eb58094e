// SPDX-License-Identifier: GPL-3.0-or-later
// The character set of bytes that neither declare one nor are UTF-8.
#pragma once

#include "encoding/character_sets.h"

#include <optional>
#include <string_view>

namespace kevra {

/// The library's guess from the first 64 KB around bytes beyond ASCII, if it is reliable: the bytes are
/// implausible as Western text, nearly all characters beyond ASCII are letters of the guessed set's script,
/// and all of `bytes` can be decoded and encoded again without a change. Nothing otherwise, and for Western
/// sets.
[[nodiscard]] std::optional<Encoding> reliableGuess(std::string_view bytes);

} // namespace kevra
