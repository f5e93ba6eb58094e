// SPDX-License-Identifier: GPL-3.0-or-later
// Opens bytes, edits one line and gives back what a save would write; for comparisons with other programs.
// Standard input: requests of one line "LABEL KIND LINE BYTES INSERTED", LABEL "-" for an encoding that has
// to be found, KIND "page" or "plain", LINE from 0, -1 for no edit, BYTES and INSERTED in hexadecimal, "-"
// for none. Standard output, one line each: the encoding's label, the text as opened, the bytes, both
// hexadecimal.
#include "encoding/character_sets.h"
#include "encoding/line_ends.h"
#include "encoding/text_codec.h"

#include <iostream>
#include <sstream>

using namespace kevra;

namespace {

std::string fromHex(const std::string &digits)
{
    std::string bytes;
    for (std::size_t i = 0; digits != "-" && i + 1 < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return bytes;
}

std::string toHex(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string out;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        out += digits[byte >> 4];
        out += digits[byte & 15];
    }
    return out.empty() ? "-" : out;
}

} // namespace

int main()
{
    for (std::string request; std::getline(std::cin, request);) {
        std::istringstream fields(request);
        std::string label;
        std::string kindName;
        std::string hex;
        std::string inserted;
        int line = 0;
        fields >> label >> kindName >> line >> hex >> inserted;
        const auto kind = kindName == "page" ? TextKind::Page : TextKind::Plain;
        const auto bytes = fromHex(hex);
        const auto file = label == "-" ? decodeFile(bytes, kind)
                                       : decodeFileAs(bytes, kind, encodingNamed(label).value());
        auto text = file.text;
        if (line >= 0) {
            const auto lines = splitLines(file.text);
            const auto at = lines.at(static_cast<std::size_t>(line)).content.data() - file.text.data();
            text.insert(static_cast<std::size_t>(at), fromHex(inserted));
        }
        const auto saved = encodeFile(text, file.format, bytes, kind);
        std::cout << labelOf(saved.format.encoding) << ' ' << toHex(file.text) << ' ' << toHex(saved.bytes)
                  << '\n';
    }
    return 0;
}
