// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/public_address.h"

#include <algorithm>
#include <span>

namespace kevra {
namespace {

struct Block {
    std::array<std::uint8_t, 4> start;
    int bits;
};

/// What the registries of special-purpose addresses keep from the public, multicast included.
constexpr std::array closedIPv4{Block{{0, 0, 0, 0}, 8}, Block{{10, 0, 0, 0}, 8}, Block{{100, 64, 0, 0}, 10},
    Block{{127, 0, 0, 0}, 8}, Block{{169, 254, 0, 0}, 16}, Block{{172, 16, 0, 0}, 12},
    Block{{192, 0, 0, 0}, 24}, Block{{192, 0, 2, 0}, 24}, Block{{192, 88, 99, 0}, 24},
    Block{{192, 168, 0, 0}, 16}, Block{{198, 18, 0, 0}, 15}, Block{{198, 51, 100, 0}, 24},
    Block{{203, 0, 113, 0}, 24}, Block{{224, 0, 0, 0}, 3}};

/// Of IPv6 one eighth is given out. In it: tunnels, which lead to any IPv4 address, and examples.
constexpr Block openIPv6{{0x20, 0, 0, 0}, 3};
constexpr std::array closedIPv6{Block{{0x20, 0x01, 0, 0}, 23}, Block{{0x20, 0x01, 0x0d, 0xb8}, 32},
    Block{{0x20, 0x02, 0, 0}, 16}, Block{{0x3f, 0xff, 0, 0}, 20}};

constexpr NetworkAddress mappedIPv4{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 0, 0, 0, 0};
constexpr std::size_t mappedBytes = 12;

std::uint32_t number(std::span<const std::uint8_t> bytes)
{
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8
        | bytes[3];
}

bool isIn(const Block &block, std::uint32_t address)
{
    return ((address ^ number(block.start)) >> (32 - block.bits)) == 0;
}

} // namespace

bool isPublic(const NetworkAddress &address)
{
    const bool old = std::equal(mappedIPv4.begin(), mappedIPv4.begin() + mappedBytes, address.begin());
    const auto start = number(std::span(address).subspan(old ? mappedBytes : 0, 4));
    const auto covers = [start](const Block &block) { return isIn(block, start); };
    if (old)
        return std::ranges::none_of(closedIPv4, covers);
    return covers(openIPv6) && std::ranges::none_of(closedIPv6, covers);
}

} // namespace kevra
