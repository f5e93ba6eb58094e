// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/object_rules.h"

#include "text/mark_scan.h"
#include "text/single_word.h"
#include "text/word_start.h"
#include "text/words.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace kevra {
namespace {

enum class Section : unsigned char { FileSystem, Shell, Streams };

struct Member {
    Section section;
    std::string_view name; ///< with the character that must follow, if one must
};

// In the order they are reported.
constexpr auto members = std::to_array<Member>({
    {Section::FileSystem, "FileExists"},
    {Section::FileSystem, "FolderExists"},
    {Section::FileSystem, "DeleteFile"},
    {Section::FileSystem, "DeleteFolder"},
    {Section::FileSystem, "MoveFile"},
    {Section::FileSystem, "CopyFile"},
    {Section::FileSystem, "CopyFolder"},
    {Section::FileSystem, "CreateFolder"},
    {Section::FileSystem, "CreateTextFile"},
    {Section::FileSystem, "OpenTextFile"},
    {Section::FileSystem, "GetFile"},
    {Section::FileSystem, "GetAbsolutePathName"},
    {Section::FileSystem, "GetBaseName"},
    {Section::FileSystem, "GetExtensionName"},
    {Section::FileSystem, "GetParentFolderName"},
    {Section::FileSystem, "DriveExists"},
    {Section::FileSystem, "GetDrive"},
    {Section::FileSystem, "GetFolder"},
    {Section::FileSystem, "GetTempName"},
    {Section::FileSystem, "OpenAsTextStream"},
    {Section::Shell, "RegWrite "},
    {Section::Shell, "RegRead("},
    {Section::Shell, "RegDelete "},
    {Section::Shell, "Run "},
    {Section::Streams, "AtEndOfLine"},
    {Section::Streams, "AtEndOfStream"},
    {Section::Streams, "Close"},
    {Section::Streams, "ReadAll"},
    {Section::Streams, "ReadLine"},
    {Section::Streams, "Skip"},
    {Section::Streams, "SkipLine"},
    {Section::Streams, "Write "},
    {Section::Streams, "WriteBlankLines"},
    {Section::Streams, "WriteLine"},
    {Section::Streams, "SubFolders"},
    {Section::Streams, "FreeSpace"},
    {Section::Streams, "DriveType"},
});

struct SectionRule {
    std::string_view required; ///< applies only to texts that contain this; empty: to all
    std::string_view message; ///< the line number is appended
};

constexpr std::array<SectionRule, 3> sectionRules{{
    {"FileSystemObject", "FileSystemObject required - Line "},
    {"WScript.Shell", "Shell Object required - Line "},
    {"", "Textstream, Drive or Folder Object required - Line "},
}};

/// Whether a name after this many quotes is inside a literal; after nine or more it counts as code.
constexpr bool isInLiteral(Offset quotes)
{
    return quotes % 2 == 1 && quotes <= 7;
}

/// The first three letters of each member, unless a full stop, and so an object, precedes them.
constexpr auto mayStartMember = [](auto window) {
    const auto first = lowered(window.at(0));
    const auto second = lowered(window.at(1));
    const auto third = lowered(window.at(2));
    const auto e = is(second, 'e');
    const auto o = is(second, 'o');
    const auto r = is(second, 'r');
    const auto e3 = is(third, 'e');
    const auto i3 = is(third, 'i');
    const auto l3 = is(third, 'l');
    const auto starts = (is(first, 'f') & (((is(second, 'i') | o) & l3) | (r & e3)))
        | (is(first, 'd') & ((e & l3) | (r & i3))) | (is(first, 'm') & o & is(third, 'v'))
        | (is(first, 'c') & ((o & is(third, 'p')) | (r & e3) | (is(second, 'l') & is(third, 'o'))))
        | (is(first, 'o') & is(second, 'p') & e3) | (is(first, 'g') & e & is(third, 't'))
        | (is(first, 'r') & ((e & (is(third, 'g') | is(third, 'a'))) | (is(second, 'u') & is(third, 'n'))))
        | (is(first, 'a') & is(second, 't') & e3) | (is(first, 'w') & r & i3)
        | (is(first, 's') & ((is(second, 'k') & i3) | (is(second, 'u') & is(third, 'b'))));
    return starts & ~is(window.at(-1), '.');
};
static_assert(
    std::ranges::all_of(members, [](const Member &row) { return holdsAt(mayStartMember, row.name); }),
    "the letter test does not know every member");
static_assert(members.size() < 256, "an index is a byte");

/// The members sorted by first letter, and where the members of each letter begin.
struct MemberIndex {
    struct Entry {
        WordStart start;
        unsigned char member = 0;
    };
    std::array<Entry, members.size()> entries{};
    std::array<unsigned char, 33> first{};

    static constexpr std::size_t letter(char byte) { return static_cast<unsigned char>(byte) & 31u; }
};

constexpr auto memberIndex = [] {
    MemberIndex index;
    std::size_t filled = 0;
    for (std::size_t letter = 0; letter + 1 < index.first.size(); ++letter) {
        index.first[letter] = static_cast<unsigned char>(filled);
        for (std::size_t i = 0; i < members.size(); ++i)
            if (MemberIndex::letter(members[i].name.front()) == letter)
                index.entries[filled++] = {WordStart(members[i].name), static_cast<unsigned char>(i)};
    }
    index.first.back() = static_cast<unsigned char>(filled);
    return index;
}();

bool matches(std::string_view text, std::size_t at, std::string_view name)
{
    return equalIgnoringCase(text.substr(at, name.size()), name);
}

/// Ignores case.
bool contains(std::string_view text, std::string_view name)
{
    const char first = lowerAscii(name[0]);
    const char second = lowerAscii(name[1]);
    bool found = false;
    forEachMark(
        text,
        [first, second](
            auto window) { return is(lowered(window.at(0)), first) & is(lowered(window.at(1)), second); },
        [&](Offset at) { found = found || matches(text, static_cast<std::size_t>(at), name); });
    return found;
}

/// The part of a line before a position. Positions must be given in order; each byte is read at most once.
class LineBefore {
public:
    explicit LineBefore(std::string_view text)
        : m_text(text)
    {
    }

    void moveTo(std::size_t at)
    {
        const auto passed = m_text.substr(m_at, at - m_at);
        const auto feed = passed.rfind('\n');
        if (feed != std::string_view::npos) {
            m_start = m_at + feed + 1;
            m_quotes = 0;
            m_apostrophe = false;
        }
        const auto onLine = m_text.substr(std::max(m_start, m_at), at - std::max(m_start, m_at));
        m_quotes += std::ranges::count(onLine, '"');
        m_apostrophe = m_apostrophe || onLine.find('\'') != std::string_view::npos;
        m_at = at;
    }

    [[nodiscard]] Offset start() const { return static_cast<Offset>(m_start); }
    [[nodiscard]] Offset quotes() const { return m_quotes; }
    [[nodiscard]] bool hasApostrophe() const { return m_apostrophe; }

private:
    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_start = 0;
    Offset m_quotes = 0;
    bool m_apostrophe = false;
};

class ObjectScan {
public:
    ObjectScan(std::string_view text, bool all)
        : m_text(text)
        , m_all(all)
        , m_line(text)
    {
    }

    std::vector<Fault> run()
    {
        forEachMark(m_text, mayStartMember, [this](Offset at) { checkAt(static_cast<std::size_t>(at)); });
        numberLines();
        std::vector<Fault> faults;
        for (const auto &places : m_found) {
            if (places.empty() || !isActive(members[places.front().member].section))
                continue;
            for (const auto &place : places) {
                faults.push_back(faultAt(place));
                if (!m_all)
                    return faults;
            }
        }
        return faults;
    }

private:
    struct Found {
        std::size_t member = 0;
        Offset at = 0;
        Offset lineStart = 0;
        Offset line = 0;
    };

    /// Finds the line numbers of all faults with a single count of the line breaks.
    void numberLines()
    {
        std::vector<Found *> inOrder;
        for (auto &places : m_found)
            for (auto &place : places)
                inOrder.push_back(&place);
        std::ranges::sort(inOrder, {}, &Found::lineStart);
        Offset counted = 0;
        Offset line = 1;
        for (auto *place : inOrder) {
            line += countMarks(
                m_text, {counted, place->lineStart}, [](auto window) { return is(window.at(0), '\n'); });
            counted = place->lineStart;
            place->line = line;
        }
    }

    void checkAt(std::size_t at)
    {
        const auto bytes = bytesAt(m_text, at);
        const auto letter = MemberIndex::letter(m_text[at]);
        for (auto i = memberIndex.first[letter]; i < memberIndex.first[letter + 1]; ++i) {
            const auto &[start, member] = memberIndex.entries[i];
            auto &found = m_found[member];
            if (start.mayBeAt(bytes) && (m_all || found.empty()) && matches(m_text, at, members[member].name)
                && lacksObject(members[member], at))
                found.push_back({member, static_cast<Offset>(at), m_line.start(), 0});
        }
    }

    /// Searches the text only when a fault depends on it.
    [[nodiscard]] bool isActive(Section section)
    {
        auto &active = m_active[static_cast<std::size_t>(section)];
        const auto required = sectionRules[static_cast<std::size_t>(section)].required;
        if (!active)
            active = required.empty() || contains(m_text, required);
        return *active;
    }

    // Names of the file system and the shell are reported inside literals as well.
    [[nodiscard]] bool lacksObject(const Member &member, std::size_t at)
    {
        m_line.moveTo(at);
        if (m_line.hasApostrophe())
            return false;
        if (member.section != Section::Streams)
            return true;
        const bool ofTheShell = member.name == "Write " && at >= 3 && matches(m_text, at - 3, "Reg");
        return !ofTheShell && !isInLiteral(m_line.quotes());
    }

    [[nodiscard]] Fault faultAt(const Found &place)
    {
        const auto length = static_cast<Offset>(m_text.size());
        if (place.lineStart != m_endOfLine.first) {
            const auto carriageReturn
                = m_text.find('\r', static_cast<std::size_t>(std::max<Offset>(place.at - 1, 0)));
            m_endOfLine = {place.lineStart,
                carriageReturn == std::string_view::npos ? length : static_cast<Offset>(carriageReturn) + 1};
        }
        const auto lineEnd = m_endOfLine.second;
        const auto &rule = sectionRules[static_cast<std::size_t>(members[place.member].section)];
        return {std::string(rule.message) + std::to_string(place.line), place.line,
            {place.lineStart, std::min(lineEnd + 1, length)}, characterBefore(m_text, lineEnd)};
    }

    std::string_view m_text;
    bool m_all;
    std::array<std::optional<bool>, sectionRules.size()> m_active;
    std::array<std::vector<Found>, members.size()> m_found;
    LineBefore m_line;
    std::pair<Offset, Offset> m_endOfLine{-1, 0}; ///< the start and the end of the last line looked up
};

} // namespace

std::vector<Fault> CheckObjectReferences(std::string_view text, bool all)
{
    return ObjectScan(text, all).run();
}

} // namespace kevra
