// SPDX-License-Identifier: GPL-3.0-or-later
// A file with the models of its scripts, for requests about a position in it.
#pragma once

#include "script/islands.h"
#include "script/model.h"

#include <memory>
#include <string_view>
#include <vector>

namespace kevra::script {

/// The scripts of a file that share a namespace.
struct FilePart {
    /// `text` must outlive the part.
    FilePart(std::string_view text, FileKind kind, Island found, const std::vector<SharedObject> &shared);

    Island island;
    ParsedScript script;
    Model model;
};

class FileModel {
public:
    /// The text must outlive the model; positions are those of the text. `shared` is what files loaded
    /// together with this one add; the names in it must outlive the model too.
    FileModel(std::string_view text, FileKind kind, const std::vector<SharedObject> &shared = {});

    [[nodiscard]] std::string_view text() const { return m_text; }
    [[nodiscard]] FileKind kind() const { return m_kind; }
    [[nodiscard]] const std::vector<std::unique_ptr<FilePart>> &parts() const { return m_parts; }
    /// The first part with script at the position, its end included; null if there is none.
    [[nodiscard]] const FilePart *partAt(Offset offset) const;
    /// Of all parts, ascending by place.
    [[nodiscard]] std::vector<Finding> findings() const;

private:
    std::string_view m_text;
    FileKind m_kind;
    std::vector<std::unique_ptr<FilePart>> m_parts;
};

} // namespace kevra::script
