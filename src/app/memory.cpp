// SPDX-License-Identifier: GPL-3.0-or-later
// The editor's own operator new. The text, its styles and its colours take tens of megabytes for a large
// file, and all of it is written to: requesting its pages at once takes half as long as faulting them in one
// by one.
#include <cstdint>
#include <cstdlib>
#include <new>

// A sanitizer has its own.
#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)

#include <malloc.h>
#include <sys/mman.h>

namespace {

constexpr std::size_t large = std::size_t{4} << 20;
constexpr std::size_t edge = std::size_t{64} << 10; ///< a multiple of every system's page

#ifdef __GLIBC__
/// Larger blocks are returned to the system when freed. By default the library raises these thresholds to the
/// largest block ever freed; window pictures and texts would then fragment the heap by some megabytes each
/// time.
[[maybe_unused]] const bool returnsMemory
    = ::mallopt(M_MMAP_THRESHOLD, 256 << 10) == 1 && ::mallopt(M_TRIM_THRESHOLD, 1 << 20) == 1;
#endif

void fetchPages([[maybe_unused]] void *bytes, [[maybe_unused]] std::size_t size)
{
#ifdef MADV_POPULATE_WRITE
    const auto before = (edge - reinterpret_cast<std::uintptr_t>(bytes) % edge) % edge;
    // Only a hint; older kernels ignore it.
    ::madvise(static_cast<char *>(bytes) + before, (size - before) / edge * edge, MADV_POPULATE_WRITE);
#endif
}

} // namespace

void *operator new(std::size_t size)
{
    for (;;) {
        if (void *bytes = std::malloc(size == 0 ? 1 : size)) {
            if (size >= large)
                fetchPages(bytes, size);
            return bytes;
        }
        const auto makeRoom = std::get_new_handler();
        if (!makeRoom)
            throw std::bad_alloc();
        makeRoom();
    }
}

void operator delete(void *bytes) noexcept
{
    std::free(bytes);
}

void operator delete(void *bytes, std::size_t) noexcept
{
    std::free(bytes);
}

#endif
