// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/text_format.h"

#include <array>

namespace kevra {

std::string encodingName(const TextFormat &format)
{
    std::string name(characterSet(format.encoding).name);
    // A mark is part of every UTF-16 file; only with UTF-8 it is worth a word.
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
