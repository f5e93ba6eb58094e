// SPDX-License-Identifier: GPL-3.0-or-later
// The rules that judge one line by its characters: quotation marks, parentheses, the spaces around commas and
// equal signs, IF without THEN. Text after "'--" is not code.
#pragma once

#include "checker/fault.h"

#include <optional>
#include <string_view>
#include <vector>

namespace kevra {

/// A line as it is passed to the rules. `start` is its first character, except in a run over a whole script,
/// where the first line starts at its second character and rules that count from there miss the first one.
/// `end` is the position just after the carriage return, or the caret after a line break that was just typed.
struct ScriptLine {
    Offset start = 0;
    Offset end = 0;
};

/// The first rule the line breaks, or nothing. `lineNumber` counts from 1. Costs one pass over the line.
[[nodiscard]] std::optional<Fault> CheckLine(std::string_view text, ScriptLine line, Offset lineNumber);

/// The same for every line that a run checks: those with a carriage return that is not the text's last
/// character. Stops after the first faulty line unless all are wanted.
enum class Faults { First, All };
[[nodiscard]] std::vector<Fault> lineFaults(std::string_view text, Faults wanted);

} // namespace kevra
