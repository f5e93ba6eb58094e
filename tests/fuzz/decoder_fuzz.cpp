// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a file: what was read and not changed is written as it was, whatever the file's type and the
// character set that is named for it; and what was added comes back.
#include "encoding/text_codec.h"

#include <cstdlib>

using namespace kevra;

extern "C" int LLVMFuzzerTestOneInput(const char *data, std::size_t size)
{
    const std::string_view bytes(data, size);
    for (const auto kind : {TextKind::Page, TextKind::Script, TextKind::Plain}) {
        const auto decoded = decodeFile(bytes, kind);
        if (encodeFile(decoded.text, decoded.format, bytes, kind).bytes != bytes)
            std::abort();
        if (decodeFile(bytes, decoded.format) != decoded.text)
            std::abort();
    }
    if (bytes.empty())
        return 0;
    const auto sets = characterSets();
    const auto encoding = sets[static_cast<unsigned char>(bytes[0]) % sets.size()].encoding;
    const auto named = decodeFileAs(bytes, TextKind::Plain, encoding);
    if (encodeFile(named.text, named.format, bytes, TextKind::Plain).bytes != bytes)
        std::abort();
    const auto longer = "x" + named.text;
    const auto edited = encodeFile(longer, named.format, bytes, TextKind::Plain);
    if (decodeFile(edited.bytes, edited.format) != longer)
        std::abort();
    return 0;
}
