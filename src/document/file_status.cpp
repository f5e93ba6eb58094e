// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/file_status.h"

namespace kevra {

FileStatus fileStatus(const DocumentParts &document, EncodingCommands &encoding, const RecoveryOffer &offer,
    const DiskNotice &notice)
{
    const auto &[surface, state, file, keeper] = document;
    // A text under review is in no file, and a file that another program has changed does not hold the text.
    const bool saved = !offer.reviewing() && !notice.isCurrent()
        && file.mayHold(static_cast<std::size_t>(surface.TextLength())) && file.holds(surface.Text());
    return {encoding.status(), saved, encoding.canReopen() && !offer.reviewing()};
}

} // namespace kevra
