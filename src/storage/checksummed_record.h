// SPDX-License-Identifier: GPL-3.0-or-later
// Strings in one block of bytes that knows whether it is whole: cut short, changed or foreign, it is none.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

[[nodiscard]] std::string withChecksum(std::initializer_list<std::string_view> fields);
[[nodiscard]] std::optional<std::vector<std::string>> unsealed(std::string_view bytes);

/// 64 bits that tell one text from another; fast, no protection against intent.
[[nodiscard]] std::uint64_t fingerprint(std::string_view bytes);

} // namespace kevra
