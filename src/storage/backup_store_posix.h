// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/version_store.h"

namespace kevra {

/// Copies in a separate folder, named by time and file name so that a user can find them. A hidden note
/// beside each records its original path and the reason. Only the user can read them.
class BackupStorePosix : public BackupStore, public VersionStore {
public:
    explicit BackupStorePosix(std::string folder); ///< created at the first copy

    bool keep(
        const std::string &path, std::string_view bytes, KeptReason reason = KeptReason::Replaced) override;

    [[nodiscard]] std::vector<Version> versions() const override;
    [[nodiscard]] std::optional<std::string> content(const std::string &name) const override;
    bool remove(const std::string &name) override;

private:
    [[nodiscard]] std::vector<Version> copies() const; ///< without the details from their notes
    [[nodiscard]] std::string notePath(const std::string &name) const;
    void prune(const std::string &newest);

    std::string m_folder;
};

} // namespace kevra
