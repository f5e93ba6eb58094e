// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/line_numbers.h"

namespace kevra {

std::string lineNumbers(int lines)
{
    std::string text;
    for (int line = 1; line <= lines; ++line) {
        const int shown = line % 100;
        text += static_cast<char>('0' + shown / 10);
        text += static_cast<char>('0' + shown % 10);
        if (line < lines)
            text += "\r\n";
    }
    return text;
}

} // namespace kevra
