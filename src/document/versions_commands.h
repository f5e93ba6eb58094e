// SPDX-License-Identifier: GPL-3.0-or-later
// The kept versions of the document and of discarded texts: compare, restore, open and delete them.
#pragma once

#include "colour/document_colouring.h"
#include "document/command_ports.h"
#include "document/disk_changes.h"
#include "storage/version_store.h"

#include <functional>
#include <string>
#include <vector>

namespace kevra {

struct VersionRow {
    std::string name; ///< in the store
    std::int64_t time = 0; ///< seconds since 1970
    std::int64_t size = 0; ///< bytes
    std::string_view reason;
    std::string path;
};

class VersionsCommands {
public:
    /// `openElsewhere` starts another editor with a copy of a text; false when it did not start.
    using OpenElsewhere = std::function<bool(const std::string &fileName, std::string_view bytes)>;

    VersionsCommands(FileCommandPorts ports, VersionStore &store, DocumentColouring &colouring,
        OpenElsewhere openElsewhere);

    enum class Scope { Document, Everything };
    [[nodiscard]] std::vector<VersionRow> rows(Scope scope) const;
    /// The version and the document's text; nothing when the version is gone.
    [[nodiscard]] std::optional<TextsToCompare> comparison(const VersionRow &row) const;
    /// Replaces the document's text by the version's, as one undo step. False when the version is gone.
    bool restore(const VersionRow &row);
    void openInNewWindow(const VersionRow &row);
    /// Asks first. False when the version was not deleted.
    bool remove(const VersionRow &row);

private:
    [[nodiscard]] std::optional<std::string> textOf(const VersionRow &row) const;

    FileCommandPorts m_ports;
    VersionStore &m_store;
    DocumentColouring &m_colouring;
    OpenElsewhere m_openElsewhere;
};

} // namespace kevra
