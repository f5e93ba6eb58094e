// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace kevra {

struct FreeBytes {
    void operator()(char *bytes) const { std::free(bytes); }
};

/// Uninitialised memory.
using RawBuffer = std::unique_ptr<char[], FreeBytes>;

/// Allocates `size` bytes. A large buffer uses large pages where the system has them: mapping 10 MB in small
/// pages takes as long as reading a file into it. Throws std::bad_alloc.
[[nodiscard]] RawBuffer allocateBytes(std::size_t size);

} // namespace kevra
