// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/names.h"

#include <array>
#include <cstring>
#include <span>

namespace kevra::script {

namespace {

// In the order of Keyword.
constexpr std::array<std::string_view, 77> keywords{"", "And", "ByRef", "ByVal", "Call", "Case", "Class",
    "Const", "Dim", "Do", "Each", "Else", "ElseIf", "Empty", "End", "Eqv", "Exit", "False", "For", "Function",
    "GoTo", "If", "Imp", "In", "Is", "Let", "Loop", "Me", "Mod", "New", "Next", "Not", "Nothing", "Null",
    "On", "Option", "Or", "Private", "Public", "ReDim", "Rem", "Resume", "Select", "Set", "Stop", "Sub",
    "Then", "To", "True", "Until", "WEnd", "While", "With", "Xor", "As", "Default", "Erase", "Error",
    "Explicit", "Get", "Optional", "ParamArray", "Preserve", "Property", "Step", "AddressOf", "AndAlso",
    "Catch", "EndIf", "GoSub", "Like", "Namespace", "OrElse", "Return", "Static", "Try", "TypeOf"};
static_assert(keywords.size() == static_cast<std::size_t>(lastKeyword) + 1);
static_assert(keywords[static_cast<std::size_t>(Keyword::Xor)] == "Xor");
static_assert(keywords[static_cast<std::size_t>(Keyword::TypeOf)] == "TypeOf");

constexpr std::array<unsigned char, 256> lowerBytes = [] {
    std::array<unsigned char, 256> table{};
    for (unsigned byte = 0; byte < 256; ++byte)
        table[byte] = static_cast<unsigned char>(byte >= 'A' && byte <= 'Z' ? byte + 0x20 : byte);
    return table;
}();

unsigned char lowerByte(char byte)
{
    return lowerBytes[static_cast<unsigned char>(byte)];
}

/// Lower case of a letter of two bytes, given as its code point; all of them stay two bytes long.
unsigned lowerLetter(unsigned letter)
{
    if ((letter >= 0xC0 && letter <= 0xDE && letter != 0xD7) || (letter >= 0x391 && letter <= 0x3A9)
        || (letter >= 0x410 && letter <= 0x42F))
        return letter + 0x20;
    if (letter >= 0x400 && letter <= 0x40F)
        return letter + 0x50;
    if (letter >= 0x100 && letter <= 0x137)
        return letter | 1;
    return letter;
}

/// Calls `take` with each byte of the name in lower case.
template <typename Take> void eachFolded(std::string_view name, Take take)
{
    for (std::size_t at = 0; at < name.size(); ++at) {
        const auto lead = static_cast<unsigned char>(name[at]);
        if (lead < 0xC3 || lead > 0xDF || at + 1 == name.size()) {
            take(lowerByte(name[at]));
            continue;
        }
        const auto letter
            = lowerLetter((lead & 0x1Fu) << 6 | (static_cast<unsigned char>(name[++at]) & 0x3Fu));
        take(static_cast<unsigned char>(0xC0 | letter >> 6));
        take(static_cast<unsigned char>(0x80 | (letter & 0x3F)));
    }
}

constexpr std::uint64_t highBits = 0x8080808080808080U;
constexpr std::uint64_t caseBits = 0x2020202020202020U;

/// Up to eight bytes, packed into a number.
std::uint64_t upToEight(const char *bytes, std::size_t size)
{
    std::uint64_t word = 0;
    if (size >= 8) {
        std::memcpy(&word, bytes, 8);
    } else if (size >= 4) {
        std::uint32_t first = 0;
        std::uint32_t last = 0;
        std::memcpy(&first, bytes, 4);
        std::memcpy(&last, bytes + size - 4, 4);
        word = std::uint64_t{last} << 32 | first;
    } else {
        for (std::size_t at = 0; at < size; ++at)
            word = word << 8 | static_cast<unsigned char>(bytes[at]);
    }
    return word;
}

constexpr std::uint64_t mix(std::uint64_t hash, std::uint64_t word)
{
    hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
    return hash ^ hash >> 32;
}

/// Equal for names that differ only in case.
std::uint32_t hashOf(std::string_view name)
{
    std::uint64_t hash = name.size();
    std::uint64_t all = 0;
    for (std::size_t at = 0; at < name.size(); at += 8) {
        const auto word = upToEight(name.data() + at, name.size() - at);
        all |= word;
        hash = mix(hash, word | caseBits);
    }
    if ((all & highBits) != 0) {
        hash = name.size();
        eachFolded(name, [&](unsigned char byte) { hash = mix(hash, byte); });
    }
    return static_cast<std::uint32_t>(hash);
}

bool sameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t at = 0; at < a.size(); ++at) {
        if (a[at] != b[at] && lowerByte(a[at]) != lowerByte(b[at]))
            return (static_cast<unsigned char>(a[at]) & 0x80) != 0 && folded(a) == folded(b);
    }
    return true;
}

} // namespace

std::string folded(std::string_view name)
{
    std::string lower;
    lower.reserve(name.size());
    eachFolded(name, [&](unsigned char byte) { lower += static_cast<char>(byte); });
    return lower;
}

NameTable::NameTable()
    : m_names(1)
    , m_slots(1024)
{
    for (const auto keyword : std::span(keywords).subspan(1))
        intern(keyword);
}

std::size_t NameTable::slotOf(std::string_view spelling, std::uint32_t hash) const
{
    const auto mask = m_slots.size() - 1;
    auto at = hash & mask;
    while (m_slots[at].name != NameId::None
        && (m_slots[at].hash != hash || !sameName(m_names[index(m_slots[at].name)], spelling)))
        at = (at + 1) & mask;
    return at;
}

NameId NameTable::intern(std::string_view spelling)
{
    const auto hash = hashOf(spelling);
    auto &slot = m_slots[slotOf(spelling, hash)];
    if (slot.name != NameId::None)
        return slot.name;
    const auto name = static_cast<NameId>(m_names.size());
    slot = {hash, name};
    m_names.push_back(spelling);
    if (m_names.size() * 2 > m_slots.size())
        grow();
    return name;
}

NameId NameTable::find(std::string_view spelling) const
{
    return m_slots[slotOf(spelling, hashOf(spelling))].name;
}

void NameTable::grow()
{
    std::vector<Slot> slots(m_slots.size() * 2);
    const auto mask = slots.size() - 1;
    for (const auto &slot : m_slots) {
        auto at = slot.hash & mask;
        while (slots[at].name != NameId::None)
            at = (at + 1) & mask;
        if (slot.name != NameId::None)
            slots[at] = slot;
    }
    m_slots = std::move(slots);
}

} // namespace kevra::script
