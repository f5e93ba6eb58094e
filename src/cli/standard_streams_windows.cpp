// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/standard_streams.h"

#include "text/system_path.h"

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <windows.h>

#include <shellapi.h>

namespace kevra {

void prepareStandardStreams()
{
    for (auto *stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}

/// The narrow arguments have lost the characters that the system's code page lacks.
std::vector<std::string> arguments(int, char **)
{
    int count = 0;
    const std::unique_ptr<wchar_t *, decltype(&LocalFree)> wide(
        CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    std::vector<std::string> out;
    for (int i = 0; i < count; ++i)
        out.push_back(std::filesystem::path(wide.get()[i]).string());
    return out;
}

std::FILE *openForReading(const std::string &path, std::error_code &error)
{
    auto *file = _wfopen(systemPath(path).c_str(), L"rb");
    error = file ? std::error_code() : std::error_code(errno, std::generic_category());
    return file;
}

} // namespace kevra
