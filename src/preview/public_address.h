// SPDX-License-Identifier: GPL-3.0-or-later
// Which addresses of the Internet are out there for everybody: not this machine, not a network around it.
#pragma once

#include <array>
#include <cstdint>

namespace kevra {

/// In network order, an address of four bytes as ::ffff:0:0/96 has it.
using NetworkAddress = std::array<std::uint8_t, 16>;

[[nodiscard]] bool isPublic(const NetworkAddress &address);

} // namespace kevra
