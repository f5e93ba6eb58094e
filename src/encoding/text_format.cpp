// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/text_format.h"

#include <array>

namespace kevra {

std::string encodingName(const TextFormat &format)
{
    std::string name(characterSet(format.encoding).name);
    // Every UTF-16 file has a mark; it is worth mentioning only for UTF-8.
    if (format.mark && format.encoding == Encoding::Utf8)
        name += " with mark";
    return format.guessed ? name + ", guessed" : name;
}

std::string lineEndsName(LineEnds ends)
{
    constexpr std::array names{"CRLF", "CRLF", "LF", "CR", "mixed line ends"};
    return names[static_cast<std::size_t>(ends)];
}

} // namespace kevra
