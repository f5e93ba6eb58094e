// SPDX-License-Identifier: GPL-3.0-or-later
// Limits the recursion depth of the parser, so that it stops before the stack overflows. Private to the
// parser.
#pragma once

#include "script/parser_state.h"

namespace kevra::script {

class Parser::Nesting {
public:
    explicit Nesting(Parser &parser)
        : m_parser(parser)
    {
        if (++m_parser.m_depth > deepest)
            m_parser.stopHere();
    }
    ~Nesting() { --m_parser.m_depth; }
    Nesting(const Nesting &) = delete;
    Nesting &operator=(const Nesting &) = delete;

private:
    static constexpr unsigned deepest = 300;
    Parser &m_parser;
};

} // namespace kevra::script
