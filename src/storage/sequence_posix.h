// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace kevra {

/// Numbers that grow from call to call, whichever running program makes it and whatever the clock says; the
/// last one is kept in a file. Where that cannot be written they still grow within this program.
class Sequence {
public:
    explicit Sequence(std::string file)
        : m_file(std::move(file))
    {
    }

    [[nodiscard]] std::uint64_t next();
    /// Later numbers are larger than this one.
    void startAfter(std::uint64_t number) { m_last = number > m_last ? number : m_last; }

private:
    std::string m_file;
    std::uint64_t m_last = 0;
};

} // namespace kevra
