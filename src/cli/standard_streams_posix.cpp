// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/standard_streams.h"

namespace kevra {

void prepareStandardStreams() { }

std::vector<std::string> arguments(int argc, char **argv)
{
    return {argv, argv + argc};
}

std::FILE *openForReading(const std::string &path)
{
    return std::fopen(path.c_str(), "rb");
}

} // namespace kevra
