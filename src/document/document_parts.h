// SPDX-License-Identifier: GPL-3.0-or-later
// A document to the commands on its file.
#pragma once

#include "document/document_file.h"
#include "editor/document_state.h"
#include "storage/backup_store.h"

namespace kevra {

/// Copies refer to the same document.
struct DocumentParts {
    operator EditedDocument() const { return {surface, state}; }

    EditorSurface &surface;
    DocumentState &state;
    DocumentFile &file;
    TextKeeper &keeper; ///< of the text that is not saved
};

} // namespace kevra
