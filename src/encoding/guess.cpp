// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/guess.h"

#include "encoding/charset.h"
#include "text/words.h"

#include <uchardet/uchardet.h>

#include <algorithm>
#include <memory>
#include <span>
#include <vector>

namespace kevra {
namespace {

constexpr std::size_t window = 64 * 1024;
constexpr std::size_t context = 256; ///< bytes before the first that is not ASCII
constexpr std::string_view japaneseEscape = "\x1B$";

constexpr int fewestLetters = 12;
constexpr int fewestMisfits = 5; ///< of Windows-1252, for another set of Latin letters

struct CodeRange {
    char32_t first;
    char32_t last;
};

constexpr CodeRange cyrillic[] = {{0x400, 0x52F}};
constexpr CodeRange greek[] = {{0x370, 0x3FF}};
constexpr CodeRange hebrew[] = {{0x590, 0x5FF}};
constexpr CodeRange arabic[] = {{0x600, 0x6FF}};
constexpr CodeRange thai[] = {{0xE01, 0xE7F}};
constexpr CodeRange eastAsian[]
    = {{0x3001, 0x30FF}, {0x3131, 0x318E}, {0x4E00, 0x9FFF}, {0xAC00, 0xD7A3}, {0xFF01, 0xFF9F}};
constexpr CodeRange latin[] = {{0xC0, 0x24F}, {0x300, 0x36F}};

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

/// Quotation marks, dashes, currency and other signs that stand in texts of every language.
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

bool isMostlyOwnLetters(const std::vector<char32_t> &text, ScriptGroup group)
{
    const auto ranges = lettersOf(group);
    int own = 0;
    int foreign = 0;
    for (const auto c : text) {
        const bool letter
            = std::ranges::any_of(ranges, [&](const auto &r) { return c >= r.first && c <= r.last; });
        own += letter;
        foreign += !letter && c >= 0x80 && !isCommonSign(c);
    }
    return own >= fewestLetters && foreign * 20 <= own;
}

/// Western words have single letters beyond ASCII, seldom three in a row.
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

/// Signs between two letters, where a word has none.
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
    return western >= fewestMisfits && signsInWords(guessed) * 10 <= western;
}

std::optional<Encoding> libraryGuess(std::string_view bytes)
{
    const std::unique_ptr<uchardet, decltype(&uchardet_delete)> detector(uchardet_new(), uchardet_delete);
    if (uchardet_handle_data(detector.get(), bytes.data(), bytes.size()) != 0)
        return std::nullopt;
    uchardet_data_end(detector.get());
    return encodingNamed(uchardet_get_charset(detector.get()));
}

/// From a little before the first byte that tells anything; whole lines, so that no character is cut.
std::string_view tellingPart(std::string_view bytes)
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

std::optional<Encoding> sureGuess(std::string_view bytes)
{
    if (isAscii(bytes) && bytes.find(japaneseEscape) == std::string_view::npos)
        return std::nullopt;
    const auto part = tellingPart(bytes);
    const auto guess = libraryGuess(part);
    if (!guess || isUnicode(*guess))
        return std::nullopt;
    const auto &set = characterSet(*guess);
    const auto text = charactersOf(toUtf8(part, *guess).text);
    if (!isMostlyOwnLetters(text, set.group) || !isUnlikelyWestern(part, text, set))
        return std::nullopt;
    const auto whole = toUtf8(bytes, *guess);
    if (whole.rawBytes || fromUtf8(whole.text, *guess) != bytes)
        return std::nullopt;
    return guess;
}

} // namespace kevra
