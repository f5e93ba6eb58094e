// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the VBScript in a file: all of a .vbs, elements and attributes of pages and of the script host's own
// files, and the server code of server pages. Positions are those of the file.
#pragma once

#include "script/parser.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra::script {

enum class FileKind : std::uint8_t {
    Script, ///< .vbs
    HostFile, ///< .wsf, .wsc: XML with jobs or components
    Page, ///< .htm, .hta
    ServerPage, ///< .asp, .asa
};

/// By the file name extension; nothing for files that hold no VBScript.
[[nodiscard]] std::optional<FileKind> fileKind(std::string_view path);

/// An object that the file itself names: <object id="shell" progid="WScript.Shell">.
struct NamedObject {
    std::string_view name;
    std::string_view progId; ///< empty if given in another way
    TextRange place;
};

/// Another file whose script is included in this one: src="..." and #include.
struct IncludedFile {
    std::string_view path; ///< as written
    TextRange place;
};

/// Pieces that share a namespace: a job, a component, a page, or the server code of a page.
struct Island {
    std::string_view name; ///< of a job or component, if it has one
    bool onServer = false;
    std::vector<Piece> pieces; ///< ascending; one parse() takes them all
    std::vector<IncludedFile> includes;
    std::vector<NamedObject> objects;
    std::vector<TextRange> elements; ///< with their tags: the job, script elements of any language, <% %>
    bool incomplete = false; ///< some script was left out: another language, encoded, or built by the server
};

/// Without pieces if the file holds no VBScript. The text must outlive the result.
[[nodiscard]] std::vector<Island> findIslands(std::string_view text, FileKind kind);

} // namespace kevra::script
