// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "preview/preview_records.h"
#include "storage/file_handle_posix.h"

namespace kevra {

/// A file for each program that shows a page, locked as long as the program runs.
class PreviewRecordsPosix : public PreviewRecords {
public:
    explicit PreviewRecordsPosix(std::string folder); ///< created at the first page

    void exclusively(const std::function<void()> &step) override;
    [[nodiscard]] std::vector<Entry> all() const override;
    [[nodiscard]] std::string own() const override;
    void write(const PreviewRecord &record) override;
    void leaveOwn() override { m_lock = {}; }
    void drop(const std::string &name) override;

private:
    [[nodiscard]] std::string path(const std::string &name) const { return m_folder + '/' + name; }

    std::string m_folder;
    std::string m_own;
    FileHandle m_lock; ///< on the own record
};

} // namespace kevra
