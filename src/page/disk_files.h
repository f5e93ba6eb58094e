// SPDX-License-Identifier: GPL-3.0-or-later
// The files on the disk. What a page holds is kept until the file changes, as many pages link to a few.
#pragma once

#include "page/page_files.h"

#include <cstdint>
#include <filesystem>
#include <unordered_map>

namespace kevra::page {

/// For one thread at a time.
class DiskFiles : public PageFiles {
public:
    [[nodiscard]] bool exists(const std::string &path) override;
    [[nodiscard]] std::optional<DisplayedSize> pictureSize(const std::string &path) override;
    [[nodiscard]] const TargetNames *targetsOf(const std::string &path) override;

private:
    struct Known {
        std::filesystem::file_time_type changed;
        std::uintmax_t size = 0;
        std::optional<TargetNames> names;
    };

    std::unordered_map<std::string, Known> m_known;
    std::uintmax_t m_knownBytes = 0; ///< of the files, more than what is kept of them
};

} // namespace kevra::page
