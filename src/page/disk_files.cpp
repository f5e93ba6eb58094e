// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/disk_files.h"

#include <fstream>

namespace kevra::page {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t largestPage = 8 << 20;
constexpr std::uintmax_t mostKept = 256 << 20;
constexpr std::size_t pictureHead = 64 << 10;

[[nodiscard]] std::string firstBytes(const std::string &path, std::size_t count)
{
    std::ifstream file(path, std::ios::binary);
    std::string bytes(count, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(count));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return bytes;
}

/// Text in which a byte is a character, or in which ASCII at least is.
[[nodiscard]] bool isByteText(std::string_view bytes)
{
    return bytes.find('\0') == std::string_view::npos;
}

} // namespace

bool DiskFiles::exists(const std::string &path)
{
    std::error_code error;
    const bool found = fs::exists(path, error);
    // A folder that may not be entered says nothing about what is in it.
    return found || (error && error != std::errc::no_such_file_or_directory);
}

std::optional<DisplayedSize> DiskFiles::pictureSize(const std::string &path)
{
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return std::nullopt;
    return sizeInHeader(firstBytes(path, pictureHead));
}

const TargetNames *DiskFiles::targetsOf(const std::string &path)
{
    std::error_code error;
    if (!isPage(path) || !fs::is_regular_file(path, error))
        return nullptr;
    const auto size = fs::file_size(path, error);
    const auto changed = fs::last_write_time(path, error);
    if (error || size > largestPage)
        return nullptr;
    auto found = m_known.find(path);
    if (found == m_known.end() || found->second.size != size || found->second.changed != changed) {
        if (m_knownBytes + size > mostKept) {
            m_known.clear();
            m_knownBytes = 0;
        }
        m_knownBytes += size;
        const auto bytes = firstBytes(path, static_cast<std::size_t>(size));
        Known known{changed, size, isByteText(bytes) ? targetNames(bytes) : std::nullopt};
        found = m_known.insert_or_assign(path, std::move(known)).first;
    }
    return found->second.names ? &*found->second.names : nullptr;
}

} // namespace kevra::page
