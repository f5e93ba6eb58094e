// SPDX-License-Identifier: GPL-3.0-or-later
// Valid VBScript programs at random, from the grammar: every name is declared, every block closed, every
// procedure called with as many arguments as it takes. The same seed gives the same program.
#pragma once

#include <cstdint>
#include <string>

namespace kevra::testing {

enum class Forms {
    All,
    Common, ///< without the forms that the independent script host does not know
};

[[nodiscard]] std::string generateProgram(std::uint64_t seed, Forms forms = Forms::All);

} // namespace kevra::testing
