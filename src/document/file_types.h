// SPDX-License-Identifier: GPL-3.0-or-later
// The file types that the editor opens, and the properties of each.
#pragma once

#include "encoding/text_format.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

struct FileFilter;

/// The page that a preview of a text writes beside its file, or into the folder for unsaved work.
inline constexpr auto previewPageName = "kevratemp.html";

enum class TypeGroup { WebPage, Script, ScriptLike, Plain };

struct FileType {
    std::string_view extension; ///< upper case
    TypeGroup group;
    TextKind kind;
    int saveFilter; ///< position in saveFilters(), from 1
};

/// The type of an accepted extension, in any case.
[[nodiscard]] std::optional<FileType> fileType(std::string_view path);
/// The type a file is opened as when any type is allowed; an unknown one is plain text.
[[nodiscard]] FileType textType(std::string_view path);
/// Decided by the extension: HTML, HTM, PHP, ASP, SHTML, HTA, ASA are pages; VBS, WSF, WSC scripts.
[[nodiscard]] TextKind textKind(std::string_view path);
[[nodiscard]] std::vector<FileFilter> openFilters();
[[nodiscard]] std::vector<FileFilter> saveFilters();
/// The entry of saveFilters() for a file, from 1; the first for an unknown extension.
[[nodiscard]] int saveFilterFor(std::string_view path);

} // namespace kevra
