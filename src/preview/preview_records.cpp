// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/preview_records.h"

#include "storage/checksummed_record.h"

#include <sstream>

namespace kevra {

std::string previewRecordBytes(const PreviewRecord &record)
{
    std::ostringstream numbers;
    numbers << record.fingerprint;
    if (record.original)
        numbers << ' ' << record.original->modified << ' ' << record.original->size << ' '
                << record.original->identity;
    return withChecksum({record.page, record.aside, numbers.str()});
}

std::optional<PreviewRecord> readPreviewRecord(std::string_view bytes)
{
    const auto fields = readChecksummed(bytes);
    if (!fields || fields->size() != 3)
        return std::nullopt;
    PreviewRecord record{(*fields)[0], 0, (*fields)[1], std::nullopt};
    std::istringstream numbers((*fields)[2]);
    numbers >> record.fingerprint;
    if (FileStamp stamp; numbers >> stamp.modified >> stamp.size >> stamp.identity)
        record.original = stamp;
    return record;
}

} // namespace kevra
