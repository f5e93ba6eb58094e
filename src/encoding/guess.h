// SPDX-License-Identifier: GPL-3.0-or-later
// The character set of bytes that neither declare one nor are UTF-8.
#pragma once

#include "encoding/character_sets.h"

#include <optional>
#include <string_view>

namespace kevra {

/// The library's guess from the first 64 KB with other bytes than ASCII, when it is sure: the bytes make no
/// sense as Western text, nearly all of their characters are letters of the guessed set's own script, and the
/// whole of `bytes` becomes the same bytes again. Nothing otherwise, and for Western sets.
[[nodiscard]] std::optional<Encoding> sureGuess(std::string_view bytes);

} // namespace kevra
