// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the tables that encoding/code_runs.h names. Runs on the system the program is built on, and asks its
// library about every sequence of bytes and every character.
#include "encoding/character_sets.h"
#include "encoding/code_runs.h"
#include "encoding/converter.h"
#include "text/utf8.h"

#include <cstdio>
#include <map>
#include <vector>

using namespace kevra;

namespace {

using Codes = std::map<std::uint32_t, std::uint32_t>;

/// What the library makes of `in` if it takes all of it.
std::string converted(Converter &library, std::string_view in)
{
    std::string out;
    return library.convert(in, out) == in.size() ? out : std::string();
}

/// 0 for what is not one character, or a pair.
std::uint32_t characterValue(std::string_view text)
{
    const auto first = firstCharacter(text);
    if (first.length == text.size())
        return first.value;
    const auto second = firstCharacter(text.substr(first.length));
    return first.length + second.length == text.size() ? code_runs::pairValue(first.value, second.value) : 0;
}

struct ByteRange {
    int first;
    int last;
};

/// The bytes that may stand at each place of a character.
std::vector<ByteRange> bytesAt(Encoding encoding, std::size_t length)
{
    if (length == 4)
        return {{0x81, 0xFE}, {0x30, 0x39}, {0x81, 0xFE}, {0x30, 0x39}};
    if (length == 3)
        return {{0x8F, 0x8F}, {0xA1, 0xFE}, {0xA1, 0xFE}};
    if (length == 2)
        return {{0x80, 0xFF}, {encoding == Encoding::Gb18030 ? 0x40 : 0x30, 0xFF}};
    return {{0, 0xFF}};
}

void addSequences(Converter &library, std::vector<ByteRange> places, std::string bytes, Codes &codes)
{
    if (bytes.size() == places.size()) {
        if (const auto text = converted(library, bytes); !text.empty())
            codes[code_runs::bytesValue(bytes)] = characterValue(text);
        return;
    }
    const auto [first, last] = places[bytes.size()];
    for (int byte = first; byte <= last; ++byte) {
        // What is a character already begins none.
        const auto longer = bytes + static_cast<char>(byte);
        if (longer.size() == places.size() || longer.size() > 1
            || !codes.contains(code_runs::bytesValue(longer)))
            addSequences(library, places, longer, codes);
    }
}

std::size_t longestCode(const CharacterSet &set)
{
    if (set.form == Form::SingleByte)
        return 1;
    return set.encoding == Encoding::Gb18030 ? 4 : set.encoding == Encoding::EucJp ? 3 : 2;
}

Codes decoding(const CharacterSet &set)
{
    const auto library = Converter::between(std::string(set.libraryName), "UTF-8");
    Codes codes;
    for (std::size_t length = 1; library && length <= longestCode(set); ++length) {
        if (length != 3 || set.encoding == Encoding::EucJp)
            addSequences(*library, bytesAt(set.encoding, length), {}, codes);
    }
    return codes;
}

Codes encoding(const CharacterSet &set, const Codes &decoding)
{
    const auto library = Converter::between("UTF-8", std::string(set.libraryName));
    Codes codes;
    const auto add = [&](std::uint32_t value, const std::string &text) {
        if (const auto bytes = converted(*library, text);
            !bytes.empty() && bytes.size() <= kevra::longestCode)
            codes[value] = code_runs::bytesValue(bytes);
    };
    for (char32_t c = 0; library && c <= code_runs::largestCharacter; ++c) {
        std::string text;
        if (c < 0xD800 || c >= 0xE000)
            appendUtf8(text, c);
        if (!text.empty())
            add(c, text);
    }
    for (const auto &code : decoding) {
        if (code.second > code_runs::largestCharacter)
            codes[code.second] = code.first;
    }
    return codes;
}

void writeRuns(const char *name, std::size_t number, const Codes &codes)
{
    std::printf("constexpr CodeRun %s%zu[] = {\n", name, number);
    CodeRun run{};
    const auto write = [&] {
        if (run.count > 0)
            std::printf("{%u,%u,%u},\n", run.from, run.to, run.count);
    };
    for (const auto &[from, to] : codes) {
        if (run.count > 0 && from == run.from + run.count && to == run.to + run.count) {
            ++run.count;
            continue;
        }
        write();
        run = {from, to, 1};
    }
    write();
    std::printf("};\n");
}

} // namespace

int main()
{
    std::printf("#include \"encoding/code_runs.h\"\nnamespace kevra {\nnamespace {\n");
    std::vector<std::string_view> names;
    for (const auto &set : characterSets()) {
        if (set.libraryName.empty() || set.form == Form::Wide || set.form == Form::Shifting)
            continue;
        const auto decoded = decoding(set);
        if (decoded.empty())
            return std::fprintf(stderr, "There is no %s here.\n", std::string(set.libraryName).c_str()), 1;
        writeRuns("decoding", names.size(), decoded);
        writeRuns("encoding", names.size(), encoding(set, decoded));
        names.push_back(set.libraryName);
    }
    std::printf("constexpr CodeTable tables[] = {\n");
    for (std::size_t i = 0; i < names.size(); ++i)
        std::printf("{\"%s\", decoding%zu, encoding%zu},\n", std::string(names[i]).c_str(), i, i);
    std::printf("};\n}\nstd::span<const CodeTable> codeTables() { return tables; }\n}\n");
    return 0;
}
