// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/file_types.h"

#include "desktop/file_dialogs.h"
#include "text/paths.h"

#include <algorithm>
#include <array>

namespace kevra {
namespace {

constexpr std::array fileTypes{
    FileType{"HTML", TypeGroup::WebPage, TextKind::Page, 1},
    FileType{"HTM", TypeGroup::WebPage, TextKind::Page, 1},
    FileType{"SHTML", TypeGroup::WebPage, TextKind::Page, 1},
    FileType{"TXT", TypeGroup::Plain, TextKind::Plain, 2},
    FileType{"VBS", TypeGroup::Script, TextKind::Script, 3},
    FileType{"JS", TypeGroup::ScriptLike, TextKind::Plain, 4},
    FileType{"ASP", TypeGroup::WebPage, TextKind::Page, 5},
    FileType{"PHP", TypeGroup::WebPage, TextKind::Page, 6},
    FileType{"CSS", TypeGroup::Plain, TextKind::Plain, 7},
    FileType{"WSF", TypeGroup::Plain, TextKind::Script, 8},
    FileType{"WSC", TypeGroup::Plain, TextKind::Script, 9},
};

// Refused by the open dialog, but opened from the program's own lists.
constexpr std::array searchedTypes{
    FileType{"HTA", TypeGroup::WebPage, TextKind::Page, 1},
    FileType{"ASA", TypeGroup::WebPage, TextKind::Page, 1},
};

constexpr auto openPatterns = "*.html;*.htm;*.txt;*.vbs;*.js;*.php;*.shtml;*.asp;*.css;*.wsf;*.wsc";

} // namespace

std::optional<FileType> fileType(std::string_view path)
{
    const auto wanted = upperAscii(extension(path));
    const auto it = std::ranges::find(fileTypes, wanted, &FileType::extension);
    return it == fileTypes.end() ? std::nullopt : std::optional(*it);
}

FileType textType(std::string_view path)
{
    if (const auto accepted = fileType(path))
        return *accepted;
    const auto wanted = upperAscii(extension(path));
    const auto it = std::ranges::find(searchedTypes, wanted, &FileType::extension);
    return it == searchedTypes.end() ? FileType{{}, TypeGroup::Plain, TextKind::Plain, 1} : *it;
}

TextKind textKind(std::string_view path)
{
    return textType(path).kind;
}

std::vector<FileFilter> openFilters()
{
    return {{std::string(" (") + openPatterns + ")", openPatterns}};
}

std::vector<FileFilter> saveFilters()
{
    return {
        {"HTML files (*.html;*.htm;*.shtml)", "*.html;*.htm;*.shtml"},
        {"Text files (*.txt)", "*.txt"},
        {"VBScript files (*.vbs)", "*.vbs"},
        {"Javascript files (*.js)", "*.js"},
        {"Active Server Pages (*.asp)", "*.asp"},
        {"PHP Files (*.php)", "*.php"},
        {"Cascading Style Sheets (*.css)", "*.css"},
        {"Windows Script Files (*.wsf)", "*.wsf"},
        {"Windows Script Components (*.wsc)", "*.wsc"},
        {"All files (*.*)", "*.*"},
    };
}

int saveFilterFor(std::string_view path)
{
    const auto type = fileType(path);
    return type ? type->saveFilter : 1;
}

} // namespace kevra
