// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/page_notes.h"

#include "storage/checksummed_record.h"

#include <sstream>

namespace kevra {

std::string noteBytes(const PageNote &note)
{
    std::ostringstream numbers;
    numbers << note.fingerprint;
    if (note.original)
        numbers << ' ' << note.original->modified << ' ' << note.original->size << ' '
                << note.original->identity;
    return withChecksum({note.page, note.aside, numbers.str()});
}

std::optional<PageNote> readNote(std::string_view bytes)
{
    const auto fields = readChecksummed(bytes);
    if (!fields || fields->size() != 3)
        return std::nullopt;
    PageNote note{(*fields)[0], 0, (*fields)[1], std::nullopt};
    std::istringstream numbers((*fields)[2]);
    numbers >> note.fingerprint;
    if (FileStamp stamp; numbers >> stamp.modified >> stamp.size >> stamp.identity)
        note.original = stamp;
    return note;
}

} // namespace kevra
