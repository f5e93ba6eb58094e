// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/guess.h"

#include "encoding/likely_charset.h"
#include "encoding/transcoding.h"
#include "text/words.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>
#include <vector>

namespace kevra {
namespace {

constexpr std::size_t window = 64 * 1024;
constexpr std::size_t context = 256; ///< bytes before the first that is not ASCII
constexpr std::string_view japaneseEscape = "\x1B$";

constexpr int minLetters = 20;
constexpr int minSignsInWords = 5; ///< read as Windows-1252, before another set of Latin letters is guessed

struct CodeRange {
    char32_t first;
    char32_t last;
    char32_t firstLower = 0; ///< the first lower-case letter; 0 in a script without case
};

constexpr CodeRange cyrillic[] = {{0x400, 0x45F, 0x430}, {0x490, 0x491}};
constexpr CodeRange greek[] = {{0x386, 0x3CE, 0x3AC}};
constexpr CodeRange hebrew[] = {{0x590, 0x5FF}};
constexpr CodeRange arabic[] = {{0x600, 0x6FF}};
constexpr CodeRange thai[] = {{0xE01, 0xE7F}};
constexpr CodeRange eastAsian[]
    = {{0x3001, 0x30FF}, {0x3131, 0x318E}, {0x4E00, 0x9FFF}, {0xAC00, 0xD7A3}, {0xFF01, 0xFF9F}};
constexpr CodeRange latin[] = {{0xC0, 0x24F}, {0x300, 0x36F}};

/// Sets so similar that the library confuses them. The first is used unless the second one gives more
/// letters.
constexpr std::array<std::pair<Encoding, Encoding>, 3> similarSets{
    {{Encoding::Windows1253, Encoding::Iso8859_7}, {Encoding::Windows1255, Encoding::Iso8859_8},
        {Encoding::Koi8R, Encoding::Koi8U}}};

std::span<const CodeRange> lettersOf(ScriptGroup group)
{
    switch (group) {
    case ScriptGroup::Cyrillic:
        return cyrillic;
    case ScriptGroup::Greek:
        return greek;
    case ScriptGroup::Hebrew:
        return hebrew;
    case ScriptGroup::Arabic:
        return arabic;
    case ScriptGroup::Thai:
        return thai;
    case ScriptGroup::SimplifiedChinese:
    case ScriptGroup::TraditionalChinese:
    case ScriptGroup::Japanese:
    case ScriptGroup::Korean:
        return eastAsian;
    case ScriptGroup::CentralEuropean:
    case ScriptGroup::Baltic:
    case ScriptGroup::Turkish:
    case ScriptGroup::Vietnamese:
        return latin;
    default:
        return {};
    }
}

constexpr bool isHigh(char byte)
{
    return static_cast<unsigned char>(byte) >= 0x80;
}

constexpr bool isAsciiLetter(char32_t c)
{
    return (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
}

/// Quotation marks, dashes, currency and other signs that occur in every language.
constexpr bool isCommonSign(char32_t c)
{
    return (c >= 0xA0 && c < 0xC0) || (c >= 0x2010 && c < 0x2500);
}

std::vector<char32_t> charactersOf(std::string_view text)
{
    std::vector<char32_t> characters;
    while (!text.empty()) {
        const auto [value, length] = firstCharacter(text);
        characters.push_back(value);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return characters;
}

const CodeRange *rangeOf(char32_t c, ScriptGroup group)
{
    const auto ranges = lettersOf(group);
    const auto it = std::ranges::find_if(ranges, [&](const auto &r) { return c >= r.first && c <= r.last; });
    return it == ranges.end() ? nullptr : &*it;
}

std::ptrdiff_t ownLetters(const std::vector<char32_t> &text, ScriptGroup group)
{
    return std::ranges::count_if(text, [&](char32_t c) { return rangeOf(c, group) != nullptr; });
}

bool isMostlyOwnLetters(const std::vector<char32_t> &text, ScriptGroup group)
{
    const auto own = ownLetters(text, group);
    const auto foreign = std::ranges::count_if(
        text, [&](char32_t c) { return c >= 0x80 && !isCommonSign(c) && !rangeOf(c, group); });
    return own >= minLetters && foreign * 100 <= own;
}

/// In the wrong set the case of letters is mixed up: capitals follow lower-case letters.
bool hasSensibleCase(const std::vector<char32_t> &text, ScriptGroup group)
{
    int pairs = 0;
    int reversed = 0;
    const CodeRange *last = nullptr;
    bool lastIsLower = false;
    for (const auto c : text) {
        const auto *range = rangeOf(c, group);
        const bool lower = range && c >= range->firstLower;
        pairs += range && last;
        reversed += range && last && range->firstLower != 0 && lastIsLower && !lower;
        last = range;
        lastIsLower = lower;
    }
    return reversed * 20 <= pairs;
}

/// Western words have single letters beyond ASCII, rarely three in a row.
bool hasRunsOfHighBytes(std::string_view bytes)
{
    std::size_t high = 0;
    std::size_t inRuns = 0;
    for (auto at = bytes.begin(); at != bytes.end();) {
        const auto start = std::find_if(at, bytes.end(), isHigh);
        at = std::find_if_not(start, bytes.end(), isHigh);
        const auto length = static_cast<std::size_t>(at - start);
        high += length;
        inRuns += length >= 3 ? length : 0;
    }
    return inRuns * 2 >= high;
}

/// The number of signs between two letters, where words have none.
int signsInWords(const std::vector<char32_t> &text)
{
    constexpr char32_t apostrophe = 0x2019;
    constexpr char32_t softHyphen = 0xAD;
    constexpr char32_t middleDot = 0xB7;
    const auto letter = [](char32_t c) { return isAsciiLetter(c) || (c >= 0xC0 && isWordCharacter(c)); };
    int found = 0;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        const auto c = text[i];
        const bool sign = c >= 0x80 && !letter(c) && c != apostrophe && c != softHyphen && c != middleDot;
        found += sign && letter(text[i - 1]) && letter(text[i + 1]);
    }
    return found;
}

bool isUnlikelyWestern(std::string_view bytes, const std::vector<char32_t> &guessed, const CharacterSet &set)
{
    if (isAscii(bytes))
        return true;
    if (lettersOf(set.group).data() != latin)
        return hasRunsOfHighBytes(bytes);
    const int western = signsInWords(charactersOf(toUtf8(bytes, Encoding::Windows1252).text));
    return western >= minSignsInWords && signsInWords(guessed) * 10 <= western;
}

std::optional<Encoding> libraryGuess(std::string_view bytes)
{
    const auto name = likelyCharset(bytes);
    // The only name of the library that is not a label of the Encoding Standard.
    return name == "UHC" ? Encoding::EucKr : encodingNamed(name);
}

struct Reading {
    Encoding encoding;
    std::vector<char32_t> text;
};

Reading readingIn(Encoding encoding, std::string_view bytes)
{
    return {encoding, charactersOf(toUtf8(bytes, encoding).text)};
}

/// Reads the bytes in the guessed set or the one similar to it, whichever fits better.
Reading bestReading(Encoding guess, std::string_view bytes)
{
    const auto pair = std::ranges::find_if(
        similarSets, [&](const auto &sets) { return sets.first == guess || sets.second == guess; });
    if (pair == similarSets.end())
        return readingIn(guess, bytes);
    const auto group = characterSet(guess).group;
    auto first = readingIn(pair->first, bytes);
    auto second = readingIn(pair->second, bytes);
    return ownLetters(second.text, group) > ownLetters(first.text, group) ? second : first;
}

/// From shortly before the first byte beyond ASCII; whole lines, so that no character is cut.
std::string_view significantPart(std::string_view bytes)
{
    auto first = std::min(asciiRun(bytes), bytes.find(japaneseEscape));
    first = bytes.rfind('\n', first - std::min(first, context));
    auto part = bytes.substr(first == std::string_view::npos ? 0 : first + 1);
    if (part.size() <= window)
        return part;
    const auto end = part.rfind('\n', window);
    return part.substr(0, end == std::string_view::npos ? window : end);
}

} // namespace

std::optional<Encoding> reliableGuess(std::string_view bytes)
{
    if (isAscii(bytes) && bytes.find(japaneseEscape) == std::string_view::npos)
        return std::nullopt;
    const auto part = significantPart(bytes);
    const auto guess = libraryGuess(part);
    if (!guess || isUnicode(*guess))
        return std::nullopt;
    const auto [encoding, text] = bestReading(*guess, part);
    const auto &set = characterSet(encoding);
    if (!isMostlyOwnLetters(text, set.group) || !hasSensibleCase(text, set.group)
        || !isUnlikelyWestern(part, text, set))
        return std::nullopt;
    const auto whole = toUtf8(bytes, encoding);
    if (whole.rawBytes || fromUtf8(whole.text, encoding) != bytes)
        return std::nullopt;
    return encoding;
}

} // namespace kevra
