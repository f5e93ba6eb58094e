// SPDX-License-Identifier: GPL-3.0-or-later
// What the command line takes from the system, the same everywhere: names are UTF-8 where the system has
// characters and bytes where it has bytes; streams carry bytes and change no line ends.
#pragma once

#include <cstdio>
#include <string>
#include <system_error>
#include <vector>

namespace kevra {

/// Puts standard input, output and error into the state above.
void prepareStandardStreams();
/// What the program was started with, its own name first.
[[nodiscard]] std::vector<std::string> arguments(int argc, char **argv);
/// Null, with `error` set, where it cannot be read.
[[nodiscard]] std::FILE *openForReading(const std::string &path, std::error_code &error);

} // namespace kevra
