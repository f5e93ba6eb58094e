// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/backup_store.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kevra {

/// A text that is kept for a time.
struct Version {
    std::string name; ///< in the store
    std::string path; ///< the text's file; a bare name if it never had one
    KeptReason reason = KeptReason::Replaced;
    std::int64_t time = 0; ///< seconds since 1970
    std::int64_t size = 0; ///< bytes
};

/// Access to what a BackupStore keeps.
class VersionStore {
public:
    virtual ~VersionStore() = default;
    [[nodiscard]] virtual std::vector<Version> versions() const = 0; ///< the newest first
    [[nodiscard]] virtual std::optional<std::string> content(const std::string &name) const = 0;
    [[nodiscard]] virtual bool remove(const std::string &name) = 0;
};

} // namespace kevra
