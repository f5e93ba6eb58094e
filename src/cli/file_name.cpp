// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/file_name.h"

#include "text/utf8.h"

namespace kevra {

std::string nameAsUtf8(std::string_view name)
{
    std::string out;
    while (!name.empty()) {
        const auto run = utf8Run(name);
        out += name.substr(0, run);
        name.remove_prefix(run);
        if (!name.empty()) {
            appendUtf8(out, U'\uFFFD');
            name.remove_prefix(1);
        }
    }
    return out;
}

std::string percentEncoded(std::string_view name)
{
    constexpr std::string_view hex = "0123456789ABCDEF";
    constexpr std::string_view allowed = "-._~/";
    std::string out;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        if (plain || allowed.find(c) != std::string_view::npos)
            out += c;
        else
            ((out += '%') += hex[byte >> 4]) += hex[byte & 15];
    }
    return out;
}

} // namespace kevra
