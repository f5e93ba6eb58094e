// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/backup_store.h"

namespace kevra {

/// Copies in a folder of their own, named by time and file name, so that a user can find them.
class BackupStoreQt : public BackupStore {
public:
    explicit BackupStoreQt(std::string folder); ///< created at the first copy

    bool keep(const std::string &path, std::string_view bytes) override;

private:
    void prune(const std::string &newest) const;

    std::string m_folder;
};

} // namespace kevra
