// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/colour_code.h"

#include <charconv>

namespace kevra {

std::string ColourToHtml(Colour colour)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string code;
    for (auto rest = colour.value; rest != 0; rest >>= 4)
        code.insert(code.begin(), digits[rest & 0xF]);
    if (code.size() < hexDigits)
        code.insert(0, hexDigits - code.size(), '0');
    const auto first = code.substr(0, 2);
    const auto last = code.substr(code.size() - 2);
    code.replace(0, 2, last);
    code.replace(4, 2, first);
    return "#" + code;
}

std::optional<Colour> colourOfHex(std::string_view digits)
{
    if (digits.size() != hexDigits || digits.front() == '-')
        return std::nullopt;
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return Colour{(value & 0xFF) << 16 | (value & 0xFF00) | value >> 16};
}

} // namespace kevra
