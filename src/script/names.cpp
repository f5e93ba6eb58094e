// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/names.h"

#include <array>
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

bool isAscii(std::string_view name)
{
    unsigned char all = 0;
    for (const char byte : name)
        all |= static_cast<unsigned char>(byte);
    return all < 0x80;
}

constexpr std::uint32_t mix(std::uint32_t hash, unsigned char byte)
{
    return (hash ^ byte) * 16777619U;
}

std::uint32_t hashOf(std::string_view name)
{
    std::uint32_t hash = 2166136261U;
    eachFolded(name, [&](unsigned char byte) { hash = mix(hash, byte); });
    return hash;
}

bool sameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    if (!isAscii(a) || !isAscii(b))
        return folded(a) == folded(b);
    for (std::size_t at = 0; at < a.size(); ++at) {
        if (a[at] != b[at] && lowerByte(a[at]) != lowerByte(b[at]))
            return false;
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
    auto slot = hash & mask;
    while (m_slots[slot] != 0) {
        const auto &entry = m_names[m_slots[slot]];
        if (entry.hash == hash && sameName(entry.spelling, spelling))
            break;
        slot = (slot + 1) & mask;
    }
    return slot;
}

NameId NameTable::intern(std::string_view spelling)
{
    const auto hash = hashOf(spelling);
    auto slot = slotOf(spelling, hash);
    if (m_slots[slot] != 0)
        return static_cast<NameId>(m_slots[slot]);
    if (m_names.size() * 2 > m_slots.size()) {
        grow();
        slot = slotOf(spelling, hash);
    }
    m_slots[slot] = static_cast<std::uint32_t>(m_names.size());
    m_names.push_back({spelling, hash});
    return static_cast<NameId>(m_slots[slot]);
}

NameId NameTable::find(std::string_view spelling) const
{
    return static_cast<NameId>(m_slots[slotOf(spelling, hashOf(spelling))]);
}

void NameTable::grow()
{
    std::vector<std::uint32_t> slots(m_slots.size() * 2);
    const auto mask = slots.size() - 1;
    for (std::uint32_t name = 1; name < m_names.size(); ++name) {
        auto slot = m_names[name].hash & mask;
        while (slots[slot] != 0)
            slot = (slot + 1) & mask;
        slots[slot] = name;
    }
    m_slots = std::move(slots);
}

} // namespace kevra::script
