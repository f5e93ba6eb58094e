// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/object_rules.h"

#include "editor/mark_scan.h"
#include "editor/words.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kevra {
namespace {

enum class Section : unsigned char { FileSystem, Shell, Streams };

struct Member {
    Section section;
    std::string_view name; ///< with the character that has to follow, where one has to
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
    std::string_view needs; ///< the text has to speak of this, if anything
    std::string_view message; ///< the line number is appended
};

constexpr std::array<SectionRule, 3> sectionRules{{
    {"FileSystemObject", "FileSystemObject required - Line "},
    {"WScript.Shell", "Shell Object required - Line "},
    {"", "Textstream, Drive or Folder Object required - Line "},
}};

/// Behind so many quotes of its line a name stands in a literal; nine or more do not protect it.
constexpr bool isInLiteral(Offset quotes)
{
    return quotes % 2 == 1 && quotes <= 7;
}

/// The first three letters of each member, and of the texts that a section needs.
constexpr auto mayStartName = [](Places places) {
    const auto first = lowered(places.behind(0));
    const auto second = lowered(places.behind(1));
    const auto third = lowered(places.behind(2));
    const auto e = is(second, 'e');
    const auto o = is(second, 'o');
    const auto r = is(second, 'r');
    const auto u = is(second, 'u');
    const auto e3 = is(third, 'e');
    const auto i3 = is(third, 'i');
    const auto l3 = is(third, 'l');
    return (is(first, 'f') & (((is(second, 'i') | o) & l3) | (r & e3)))
        | (is(first, 'd') & ((e & l3) | (r & i3))) | (is(first, 'm') & o & is(third, 'v'))
        | (is(first, 'c') & ((o & is(third, 'p')) | (r & e3) | (is(second, 'l') & is(third, 'o'))))
        | (is(first, 'o') & is(second, 'p') & e3) | (is(first, 'g') & e & is(third, 't'))
        | (is(first, 'r') & ((e & (is(third, 'g') | is(third, 'a'))) | (u & is(third, 'n'))))
        | (is(first, 'a') & is(second, 't') & e3)
        | (is(first, 's') & ((is(second, 'k') & i3) | (u & is(third, 'b'))))
        | (is(first, 'w') & ((r & i3) | (is(second, 's') & is(third, 'c'))));
};

constexpr std::size_t startLength = 3;

/// A number for the first three letters, whatever their case.
constexpr std::size_t startSlot(std::string_view name)
{
    return static_cast<std::size_t>((name[0] & 31) << 10 | (name[1] & 31) << 5 | (name[2] & 31));
}

constexpr auto memberSlots = [] {
    std::array<std::size_t, members.size()> all{};
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = startSlot(members[i].name);
    return all;
}();

/// What stands on a line before a place. Places are asked for in order; each byte is looked at once at most.
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
        for (std::size_t i = 0; i < sectionRules.size(); ++i)
            m_active[i] = sectionRules[i].needs.empty();
    }

    std::vector<Finding> run()
    {
        forEachMark(m_text, mayStartName, [this](Offset at) {
            const auto start = static_cast<std::size_t>(at);
            look(start, startSlot(m_text.substr(start, startLength)));
        });
        numberLines();
        std::vector<Finding> findings;
        for (const auto &places : m_found) {
            for (const auto &place : places) {
                if (!m_active[static_cast<std::size_t>(members[place.member].section)])
                    continue;
                findings.push_back(finding(place));
                if (!m_all)
                    return findings;
            }
        }
        return findings;
    }

private:
    struct Found {
        std::size_t member = 0;
        Offset at = 0;
        Offset lineStart = 0;
        Offset line = 0;
    };

    /// Counts the line breaks once, whatever the number of findings.
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
            const auto passed = m_text.substr(
                static_cast<std::size_t>(counted), static_cast<std::size_t>(place->lineStart - counted));
            line += countMarks(passed, [](Places places) { return is(places.behind(0), '\n'); });
            counted = place->lineStart;
            place->line = line;
        }
    }

    void look(std::size_t at, std::size_t slot)
    {
        for (std::size_t i = 0; i < sectionRules.size(); ++i)
            m_active[i]
                = m_active[i] || (!sectionRules[i].needs.empty() && matches(at, sectionRules[i].needs));
        if (at > 0 && m_text[at - 1] == '.')
            return;
        for (std::size_t i = 0; i < members.size(); ++i) {
            const bool wanted = memberSlots[i] == slot && (m_all || m_found[i].empty());
            if (wanted && matches(at, members[i].name) && lacksObject(members[i], at))
                m_found[i].push_back({i, static_cast<Offset>(at), m_line.start(), 0});
        }
    }

    [[nodiscard]] bool matches(std::size_t at, std::string_view name) const
    {
        return std::ranges::equal(m_text.substr(at, name.size()), name, {}, lowerAscii, lowerAscii);
    }

    // The file system's and the shell's names are looked for in literals as well.
    [[nodiscard]] bool lacksObject(const Member &member, std::size_t at)
    {
        m_line.moveTo(at);
        if (m_line.hasApostrophe())
            return false;
        if (member.section != Section::Streams)
            return true;
        const bool ofTheShell = member.name == "Write " && at >= 3 && matches(at - 3, "Reg");
        return !ofTheShell && !isInLiteral(m_line.quotes());
    }

    [[nodiscard]] Finding finding(const Found &place)
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
            {place.lineStart, std::min(lineEnd + 1, length)}, lineEnd - 1};
    }

    std::string_view m_text;
    bool m_all;
    std::array<bool, sectionRules.size()> m_active{};
    std::array<std::vector<Found>, members.size()> m_found;
    LineBefore m_line;
    std::pair<Offset, Offset> m_endOfLine{-1, 0}; ///< a line's start, and its end
};

} // namespace

std::vector<Finding> CheckObjectReferences(std::string_view text, bool all)
{
    return ObjectScan(text, all).run();
}

} // namespace kevra
