// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/parser_memory.h"

#include <algorithm>
#include <new>

namespace kevra::page {
namespace {

constexpr std::size_t chunkBytes = 256 << 10;

[[nodiscard]] constexpr std::size_t aligned(std::size_t size)
{
    return (size + alignof(std::max_align_t) - 1) & ~(alignof(std::max_align_t) - 1);
}

} // namespace

ParserMemory::ParserMemory(std::size_t maxBytes)
    : m_left(maxBytes)
{
}

bool ParserMemory::addChunk(std::size_t size) noexcept
{
    if (size > m_left)
        return false;
    try {
        m_chunks.push_back(allocateBytes(size));
    } catch (const std::bad_alloc &) {
        return false;
    }
    m_left -= size;
    m_next = m_chunks.back().get();
    m_end = m_next + size;
    return true;
}

void *ParserMemory::allocate(std::size_t size) noexcept
{
    size = aligned(size);
    if (static_cast<std::size_t>(m_end - m_next) < size && !addChunk(std::max(size, chunkBytes)))
        std::longjmp(exhausted, 1); // NOLINT(cert-err52-cpp): only frames of C are left
    m_last = m_next;
    m_next += size;
    return m_last;
}

void ParserMemory::release(void *piece) noexcept
{
    if (piece != nullptr && piece == m_last)
        m_next = m_last;
}

} // namespace kevra::page
