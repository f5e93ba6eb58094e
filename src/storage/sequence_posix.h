// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace kevra {

/// Increasing numbers, shared by all running instances through a file and independent of the clock. If the
/// file cannot be written, they still increase within this instance.
class Sequence {
public:
    explicit Sequence(std::string file)
        : m_file(std::move(file))
    {
    }

    [[nodiscard]] std::uint64_t next();
    /// Makes later numbers larger than `number`.
    void startAfter(std::uint64_t number) { m_last = number > m_last ? number : m_last; }

private:
    std::string m_file;
    std::uint64_t m_last = 0;
};

} // namespace kevra
