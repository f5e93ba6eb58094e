// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/raw_buffer.h"

#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace kevra {

RawBuffer allocateBytes(std::size_t size)
{
#ifdef MADV_HUGEPAGE
    constexpr std::size_t largePage = 2 << 20;
    if (size >= 2 * largePage) {
        const auto whole = (size + largePage - 1) / largePage * largePage;
        if (void *bytes = std::aligned_alloc(largePage, whole)) {
            // Only a hint; the memory is usable without it.
            madvise(bytes, whole, MADV_HUGEPAGE);
            return RawBuffer(static_cast<char *>(bytes));
        }
    }
#endif
    auto *bytes = static_cast<char *>(std::malloc(size));
    if (!bytes)
        throw std::bad_alloc();
    return RawBuffer(bytes);
}

} // namespace kevra
