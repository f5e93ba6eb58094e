// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/standard_streams.h"

#include <cerrno>

namespace kevra {

void prepareStandardStreams() { }

std::vector<std::string> arguments(int argc, char **argv)
{
    return {argv, argv + argc};
}

std::FILE *openForReading(const std::string &path, std::error_code &error)
{
    auto *file = std::fopen(path.c_str(), "rb");
    error = file ? std::error_code() : std::error_code(errno, std::generic_category());
    return file;
}

} // namespace kevra
