// SPDX-License-Identifier: GPL-3.0-or-later
// Strings in one block of bytes with a checksum: a truncated, changed or foreign block is rejected.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

[[nodiscard]] std::string withChecksum(std::initializer_list<std::string_view> fields);
[[nodiscard]] std::optional<std::vector<std::string>> readChecksummed(std::string_view bytes);

/// A fast 64-bit hash; not cryptographic.
[[nodiscard]] std::uint64_t fingerprint(std::string_view bytes);

} // namespace kevra
