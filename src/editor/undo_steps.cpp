// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/undo_steps.h"

#include <utility>

namespace kevra {
namespace {

constexpr UndoSteps::Milliseconds pause = 1000;

} // namespace

Stroke::Kind strokeKind(char32_t character)
{
    if (character == U'\r' || character == U'\n')
        return Stroke::Kind::LineBreak;
    return character == U' ' || character == U'\t' || character == U'\u00A0' ? Stroke::Kind::Space
                                                                             : Stroke::Kind::Word;
}

bool UndoSteps::begins(Stroke stroke, Milliseconds time)
{
    const bool sameKind = std::exchange(m_last, stroke) == stroke && stroke.kind != Stroke::Kind::LineBreak;
    const auto before = std::exchange(m_time, time);
    const bool paused = before != 0 && time >= before + pause;
    return !sameKind || paused;
}

} // namespace kevra
