// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/document_state.h"

#include <utility>

namespace kevra {

/// While it lives, change handlers know that the program itself is at work.
class ProgrammaticChange {
public:
    explicit ProgrammaticChange(DocumentState &state)
        : m_state(state)
        , m_before(std::exchange(state.programmaticChange, true))
    {
    }
    ~ProgrammaticChange() { m_state.programmaticChange = m_before; }
    ProgrammaticChange(const ProgrammaticChange &) = delete;
    ProgrammaticChange &operator=(const ProgrammaticChange &) = delete;

private:
    DocumentState &m_state;
    bool m_before;
};

} // namespace kevra
