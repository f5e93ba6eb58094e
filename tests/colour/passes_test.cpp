// SPDX-License-Identifier: GPL-3.0-or-later
// Compares the passes with literal implementations of the same procedures, one selection at a time.
#include "colour/keyword_pass.h"
#include "colour/reference_colouring.h"
#include "colour/tag_pass.h"

#include <gtest/gtest.h>

#include <iostream>
#include <random>

namespace kevra {
namespace {

constexpr int textsCompared = 40'000;

std::string utf8(const std::u32string &text)
{
    std::string out;
    for (const auto c : text) {
        if (c < 0x80)
            out += static_cast<char>(c);
        else if (c < 0x800)
            out += {static_cast<char>(0xC0 | c >> 6), static_cast<char>(0x80 | (c & 0x3F))};
        else
            out += {static_cast<char>(0xE0 | c >> 12), static_cast<char>(0x80 | (c >> 6 & 0x3F)),
                static_cast<char>(0x80 | (c & 0x3F))};
    }
    return out;
}

/// The colour of every character after the runs are painted over `ground`.
std::vector<Colour> painted(std::string_view text, std::vector<Colour> ground, const ColourRuns &runs)
{
    std::vector<Colour> bytes;
    std::size_t character = 0;
    for (std::size_t at = 0; at < text.size();
         at += static_cast<std::size_t>(characterLength(text, static_cast<Offset>(at))))
        bytes.resize(at + static_cast<std::size_t>(characterLength(text, static_cast<Offset>(at))),
            ground[character++]);
    for (const auto &run : runs)
        std::fill(bytes.begin() + run.range.start, bytes.begin() + run.range.end, run.colour);
    std::vector<Colour> characters;
    for (Offset at = 0; at < static_cast<Offset>(text.size()); at += characterLength(text, at))
        characters.push_back(bytes[static_cast<std::size_t>(at)]);
    return characters;
}

class Generator {
public:
    explicit Generator(std::vector<std::u32string> bits)
        : m_bits(std::move(bits))
    {
    }

    std::u32string text(int longest)
    {
        std::u32string out;
        for (int i = number(longest); i > 0; --i)
            out += m_bits[static_cast<std::size_t>(number(static_cast<int>(m_bits.size()) - 1))];
        return out;
    }
    int number(int max) { return std::uniform_int_distribution(0, max)(m_random); }

private:
    std::vector<std::u32string> m_bits;
    std::mt19937 m_random{20261121};
};

const std::vector<std::u32string> pageBits{
    U"<", U">", U"<", U">", U"a", U"\u00e9", U"\u2014", U" ", U"<b>", U"text ", U"\r\n", U"<!-- ", U"-->"};
const std::vector<std::u32string> scriptBits{U"next", U"Next", U"next", U" ", U" ", U"\r\n", U"\r\n", U"\t",
    U"x", U"\u00e9", U"\u2014", U"_", U".", U"\"", U"\"", U"<<", U">>", U"<", U">", U"'--", U"'-", U"'",
    U"end sub", U"end if", U"End Function", U"sub", U"If", U"elseif", U"msgbox", U"inputbox", U"not", U"do",
    U"for", U"7"};

/// Compares pass and procedure on generated texts, half of them short.
void compareWithProcedure(const std::vector<std::u32string> &bits, int shortText,
    ColourRuns (*pass)(std::string_view, Colour), void (*procedure)(ReferenceColouring &, Colour))
{
    Generator generator(bits);
    for (int i = 0; i < textsCompared; ++i) {
        ReferenceColouring reference(generator.text(i % 2 ? shortText : 40));
        const auto text = utf8(reference.text);
        const auto runs = painted(text, reference.colour, pass(text, colours::defaultCode));
        procedure(reference, colours::defaultCode);
        ASSERT_EQ(runs, reference.colour) << text;
    }
    std::cout << textsCompared << " texts compared\n";
}

TEST(TagPass, PaintsWhatTheProcedurePaints)
{
    compareWithProcedure(pageBits, 12, tagRuns, colourTagsStepByStep);
}

TEST(ScriptPass, PaintsWhatTheProcedurePaints)
{
    compareWithProcedure(scriptBits, 8, scriptRuns, colourScriptStepByStep);
}

TEST(RegionPass, PaintsWhatTheProcedurePaints)
{
    Generator generator(scriptBits);
    for (int i = 0; i < textsCompared; ++i) {
        ReferenceColouring reference(generator.text(30));
        const int start = generator.number(reference.length());
        const int end = start + generator.number(reference.length() - start);
        const auto text = utf8(reference.text);
        const auto bytes = [&](int characters) {
            return static_cast<Offset>(
                utf8(reference.text.substr(0, static_cast<std::size_t>(characters))).size());
        };
        // Only where counting characters and counting bytes starts the search at the same position.
        if (start > 0 && reference.at(start - 1) >= 0x80)
            continue;
        const auto region = regionRuns(text, {bytes(start), bytes(end)}, colours::defaultCode);
        const auto runs = painted(text, reference.colour, region.runs);
        const bool whole = colourRegionStepByStep(reference, start, end, colours::defaultCode);
        ASSERT_EQ(runs, reference.colour) << text << " from " << start << " to " << end;
        ASSERT_EQ(region.failed, !whole) << text << " from " << start << " to " << end;
    }
    std::cout << textsCompared << " regions compared\n";
}

} // namespace
} // namespace kevra
