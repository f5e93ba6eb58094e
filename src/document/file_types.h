// SPDX-License-Identifier: GPL-3.0-or-later
// The file types the editor opens, and what goes with each.
#pragma once

#include "encoding/text_format.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

struct FileFilter;

enum class TypeGroup { WebPage, Script, ScriptLike, Plain };

struct FileType {
    std::string_view extension; ///< capitals
    TypeGroup group;
    TextKind kind;
    int saveFilter; ///< position in saveFilters(), from 1
};

/// The type of an accepted extension, whatever its case.
[[nodiscard]] std::optional<FileType> fileType(std::string_view path);
/// What a file is opened as when its type does not have to be accepted; an unknown one is plain text.
[[nodiscard]] FileType textType(std::string_view path);
/// Decided by the extension: HTML, HTM, PHP, ASP, SHTML, HTA, ASA are pages; VBS, WSF, WSC scripts.
[[nodiscard]] TextKind textKind(std::string_view path);
[[nodiscard]] std::vector<FileFilter> openFilters();
[[nodiscard]] std::vector<FileFilter> saveFilters();
/// The entry of saveFilters() for a file, from 1; an unknown extension has the first.
[[nodiscard]] int saveFilterFor(std::string_view path);

} // namespace kevra
