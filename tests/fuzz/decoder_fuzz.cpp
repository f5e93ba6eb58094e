// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a file: what was read and not changed is written as it was, whatever the file's type.
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
    return 0;
}
