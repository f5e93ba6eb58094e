// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

namespace kevra {

/// Sets a flag and restores its previous value when destroyed.
class FlagGuard {
public:
    explicit FlagGuard(bool &flag)
        : m_flag(flag)
        , m_before(std::exchange(flag, true))
    {
    }
    ~FlagGuard() { m_flag = m_before; }
    FlagGuard(const FlagGuard &) = delete;
    FlagGuard &operator=(const FlagGuard &) = delete;

private:
    bool &m_flag;
    bool m_before;
};

} // namespace kevra
