// SPDX-License-Identifier: GPL-3.0-or-later
// What the window shows about the document's file.
#pragma once

#include "document/disk_notice.h"
#include "document/encoding_commands.h"
#include "document/recovery_offer.h"

namespace kevra {

struct FileStatus {
    EncodingStatus encoding;
    bool saved = true; ///< the file holds the text, in the encoding of the next save
    bool canReopen = false;
};

/// Costs a pass over the text if its length is that of the file's text.
[[nodiscard]] FileStatus fileStatus(const DocumentParts &document, EncodingCommands &encoding,
    const RecoveryOffer &offer, const DiskNotice &notice);

} // namespace kevra
