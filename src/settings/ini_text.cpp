// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/ini_text.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <utility>

namespace kevra {
namespace {

constexpr std::string_view blanks = " \t\r";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

constexpr std::array<std::pair<char, char>, 5> escapes{
    {{'\\', '\\'}, {'"', '"'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}}};
constexpr std::size_t hexDigits = 2; // after "\x"

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

bool isQuoted(std::string_view value)
{
    return value.size() > 1 && value.front() == '"' && value.back() == '"';
}

/// Appends the character of the escape sequence at the start of `text` and returns the sequence's length. Any
/// other backslash, as in a path typed by hand, is kept as it is.
std::size_t unescape(std::string_view text, std::string &out)
{
    const char kind = text.size() > 1 ? text[1] : '\0';
    for (const auto &[letter, character] : escapes) {
        if (kind == letter) {
            out += character;
            return 2;
        }
    }
    unsigned char code = 0;
    const auto digits = kind == 'x' ? text.substr(2, hexDigits) : std::string_view();
    const auto *end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, code, 16);
    const bool isHex = digits.size() == hexDigits && error == std::errc() && stop == end;
    out += isHex ? static_cast<char>(code) : '\\';
    return isHex ? 2 + hexDigits : 1;
}

std::string readValue(std::string_view written)
{
    if (isQuoted(written))
        written = written.substr(1, written.size() - 2);
    std::string value;
    while (!written.empty()) {
        const auto plain = written.substr(0, written.find('\\'));
        value += plain;
        written.remove_prefix(plain.size());
        if (!written.empty())
            written.remove_prefix(unescape(written, value));
    }
    return value;
}

std::string escaped(char character)
{
    for (const auto &[letter, meaning] : escapes)
        if (character == meaning)
            return {'\\', letter};
    if (static_cast<unsigned char>(character) >= ' ')
        return {character};
    char code[8];
    std::snprintf(code, sizeof code, "\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(character)));
    return code;
}

std::string writtenValue(std::string_view value)
{
    std::string out;
    for (const char character : value)
        out += escaped(character);
    return trimmed(value) == value ? out : '"' + out + '"';
}

} // namespace

IniFile readIni(std::string_view text)
{
    IniFile file;
    std::string section;
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    while (!text.empty()) {
        const auto end = text.find('\n');
        const auto line = trimmed(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        const auto equals = line.find('=');
        if (line.empty() || line.front() == ';' || line.front() == '#')
            continue;
        if (line.front() == '[' && line.back() == ']')
            section = std::string(line.substr(1, line.size() - 2)) + '/';
        else if (line.front() == '[' || equals == std::string_view::npos || equals == 0)
            file.complete = false;
        else
            file.values[section + std::string(trimmed(line.substr(0, equals)))]
                = readValue(trimmed(line.substr(equals + 1)));
    }
    return file;
}

std::string iniText(const IniValues &values)
{
    std::string above;
    std::map<std::string_view, std::string> sections;
    for (const auto &[name, value] : values) {
        const auto slash = name.find('/');
        const bool inSection = slash != std::string::npos;
        auto &lines = inSection ? sections[std::string_view(name).substr(0, slash)] : above;
        lines += name.substr(inSection ? slash + 1 : 0) + '=' + writtenValue(value) + '\n';
    }
    for (const auto &[section, lines] : sections) {
        above += above.empty() ? "[" : "\n[";
        above.append(section) += "]\n" + lines;
    }
    return above;
}

} // namespace kevra
