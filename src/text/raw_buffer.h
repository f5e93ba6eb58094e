// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace kevra {

struct FreeBytes {
    void operator()(char *bytes) const { std::free(bytes); }
};

/// Memory that nothing has been written to yet.
using RawBuffer = std::unique_ptr<char[], FreeBytes>;

/// Room for so many bytes, in large pages where there are many and the system has such: getting 10 MB page by
/// page costs as much as reading a file into them. Throws std::bad_alloc.
[[nodiscard]] RawBuffer byteRoom(std::size_t size);

} // namespace kevra
