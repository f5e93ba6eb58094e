// SPDX-License-Identifier: GPL-3.0-or-later
// The versions that are kept of the document, and of texts that were given up: looked at, brought back,
// opened beside the document, deleted.
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
    /// `openElsewhere` starts the editor anew with a copy of a text; false when it did not start.
    using OpenElsewhere = std::function<bool(const std::string &fileName, std::string_view bytes)>;

    VersionsCommands(FileCommandPorts ports, VersionStore &store, DocumentColouring &colouring,
        OpenElsewhere openElsewhere);

    enum class Of { Document, Everything };
    [[nodiscard]] std::vector<VersionRow> rows(Of of) const;
    /// The version beside the document's text; nothing when it is gone.
    [[nodiscard]] std::optional<TextsToCompare> comparison(const VersionRow &row) const;
    /// Puts the version's text in the document's place, as one step of undo. False when it is gone.
    bool restore(const VersionRow &row);
    void openInNewWindow(const VersionRow &row);
    /// Asks first. False when the version is still there.
    bool remove(const VersionRow &row);

private:
    [[nodiscard]] std::optional<std::string> textOf(const VersionRow &row) const;

    FileCommandPorts m_ports;
    VersionStore &m_store;
    DocumentColouring &m_colouring;
    OpenElsewhere m_openElsewhere;
};

} // namespace kevra
