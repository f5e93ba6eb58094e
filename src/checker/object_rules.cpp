// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/object_rules.h"

#include "editor/find.h"
#include "editor/words.h"

#include <algorithm>
#include <array>
#include <cstdint>

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

constexpr std::size_t pairSlot(char first, char second)
{
    return static_cast<std::size_t>((first & 31) << 5 | (second & 31));
}

/// For two letters, whatever their case, whether a member may start with them.
constexpr auto memberStarts = [] {
    std::array<bool, 1024> all{};
    for (const auto &member : members)
        all[pairSlot(member.name[0], member.name[1])] = true;
    return all;
}();

/// One pass over the text that knows, at every place, what stands before it on its line.
class ObjectScan {
public:
    ObjectScan(std::string_view text, bool all)
        : m_text(text)
        , m_all(all)
    {
        const TextRange whole{0, static_cast<Offset>(text.size())};
        for (std::size_t i = 0; i < sectionRules.size(); ++i)
            m_active[i] = sectionRules[i].needs.empty() || find(text, sectionRules[i].needs, whole);
    }

    std::vector<Finding> run()
    {
        for (std::size_t at = 0; at < m_text.size(); ++at)
            take(at);
        std::vector<Finding> findings;
        for (const auto &places : m_found) {
            for (const auto &place : places) {
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

    void take(std::size_t at)
    {
        const char byte = m_text[at];
        if (byte == '\n') {
            m_lineStart = static_cast<Offset>(at) + 1;
            ++m_line;
            m_quotes = 0;
            m_apostrophe = false;
        } else if (byte == '"') {
            ++m_quotes;
        } else if (byte == '\'') {
            m_apostrophe = true;
        } else if (at + 1 < m_text.size() && memberStarts[pairSlot(byte, m_text[at + 1])]) {
            takeMembers(at);
        }
    }

    void takeMembers(std::size_t at)
    {
        const bool hasObject = at > 0 && m_text[at - 1] == '.';
        if (hasObject || m_apostrophe)
            return;
        for (std::size_t i = 0; i < members.size(); ++i) {
            const bool wanted
                = m_active[static_cast<std::size_t>(members[i].section)] && (m_all || m_found[i].empty());
            if (wanted && matches(at, members[i].name) && lacksObject(members[i], at))
                m_found[i].push_back({i, static_cast<Offset>(at), m_lineStart, m_line});
        }
    }

    [[nodiscard]] bool matches(std::size_t at, std::string_view name) const
    {
        return std::ranges::equal(m_text.substr(at, name.size()), name, {}, lowerAscii, lowerAscii);
    }

    // The file system's and the shell's names are looked for in literals as well.
    [[nodiscard]] bool lacksObject(const Member &member, std::size_t at) const
    {
        if (member.section != Section::Streams)
            return true;
        const bool ofTheShell = member.name == "Write " && at >= 3 && matches(at - 3, "Reg");
        return !ofTheShell && !isInLiteral(m_quotes);
    }

    [[nodiscard]] Finding finding(const Found &place) const
    {
        const auto length = static_cast<Offset>(m_text.size());
        const auto searchFrom = static_cast<std::size_t>(std::max<Offset>(place.at - 1, 0));
        const auto carriageReturn = m_text.find('\r', searchFrom);
        const auto lineEnd
            = carriageReturn == std::string_view::npos ? length : static_cast<Offset>(carriageReturn) + 1;
        const auto &rule = sectionRules[static_cast<std::size_t>(members[place.member].section)];
        return {std::string(rule.message) + std::to_string(place.line), place.line,
            {place.lineStart, std::min(lineEnd + 1, length)}, lineEnd - 1};
    }

    std::string_view m_text;
    bool m_all;
    std::array<bool, sectionRules.size()> m_active{};
    std::array<std::vector<Found>, members.size()> m_found;
    Offset m_lineStart = 0;
    Offset m_line = 1;
    Offset m_quotes = 0;
    bool m_apostrophe = false;
};

} // namespace

std::vector<Finding> CheckObjectReferences(std::string_view text, bool all)
{
    return ObjectScan(text, all).run();
}

} // namespace kevra
