// SPDX-License-Identifier: GPL-3.0-or-later
// What a change of the text means for the document's encoding and for the record of its unsaved text.
#pragma once

#include "document/document.h"
#include "document/encoding_commands.h"

namespace kevra {

class TextChanges {
public:
    TextChanges(Document &document, EncodingCommands &encoding)
        : m_document(document)
        , m_encoding(encoding)
    {
    }

    /// `position` and `removed` refer to the old text. True when the change is the user's: then a record is
    /// due within RecoveryJournal::recordDelay.
    bool changed(Offset position, Offset removed, Offset added);
    /// The text still holds what is about to be removed.
    void aboutToRemove(Offset length);

private:
    Document &m_document;
    EncodingCommands &m_encoding;
};

} // namespace kevra
