// SPDX-License-Identifier: GPL-3.0-or-later
// The memory of one parse: given out piece by piece, returned as a whole, and bounded. A library in C that
// asks for more than there is has no other way out than a jump to where it was called.
#pragma once

#include "text/raw_buffer.h"

#include <csetjmp>
#include <cstddef>
#include <vector>

namespace kevra::page {

class ParserMemory {
public:
    explicit ParserMemory(std::size_t maxBytes);

    /// At the end of the memory jumps to `exhausted`, which has to be set.
    [[nodiscard]] void *allocate(std::size_t size) noexcept;
    /// What was given out last is given out again; all else waits for the end.
    void release(void *piece) noexcept;

    std::jmp_buf exhausted{};

private:
    [[nodiscard]] bool addChunk(std::size_t size) noexcept;

    std::vector<RawBuffer> m_chunks;
    std::size_t m_left; ///< that may still be asked of the system
    char *m_next = nullptr;
    char *m_end = nullptr;
    char *m_last = nullptr;
};

} // namespace kevra::page
