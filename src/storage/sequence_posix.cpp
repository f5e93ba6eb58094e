// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/sequence_posix.h"

#include "storage/file_handle_posix.h"

#include <charconv>
#include <fcntl.h>
#include <sys/file.h>
#include <tuple>

namespace kevra {
namespace {

constexpr std::size_t digits
    = 20; ///< fixed width: the file never grows, so that writing works on a full disk

std::uint64_t storedNumber(int file)
{
    const auto text = readAll(file);
    std::uint64_t number = 0;
    if (text)
        std::from_chars(text->data(), text->data() + text->size(), number);
    return number;
}

std::string padded(std::uint64_t number)
{
    const auto text = std::to_string(number);
    return std::string(digits - text.size(), '0') + text;
}

} // namespace

std::uint64_t Sequence::next()
{
    const auto file = openFile(m_file, O_RDWR | O_CREAT | O_NOFOLLOW, 0600);
    const bool locked = file && !isIrregularFile(m_file) && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0;
    if (locked)
        startAfter(storedNumber(file.get()));
    ++m_last;
    if (locked)
        std::ignore = writeAll(file.get(), padded(m_last), 0); // then the file repeats a number: no harm
    return m_last;
}

} // namespace kevra
