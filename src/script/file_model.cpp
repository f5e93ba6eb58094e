// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/file_model.h"

#include "script/analysis.h"

#include <algorithm>

namespace kevra::script {
namespace {

[[nodiscard]] Host hostOf(const Island &island, FileKind kind)
{
    if (island.onServer)
        return Host::ServerPage;
    switch (kind) {
    case FileKind::Script:
        return Host::ScriptFile;
    case FileKind::HostFile:
        return Host::HostFile;
    case FileKind::Page:
    case FileKind::ServerPage:
        break;
    }
    return Host::Page;
}

/// Gives the classes of shared objects a name in the script.
[[nodiscard]] Surroundings surroundingsOf(
    const Island &island, FileKind kind, const std::vector<SharedObject> &shared, NameTable &names)
{
    for (const auto &object : shared)
        if (!object.ofClass.empty())
            names.intern(object.ofClass);
    Surroundings surroundings{
        hostOf(island, kind), !island.includes.empty() || island.incomplete, {}, shared};
    for (const auto &object : island.objects)
        surroundings.objects.push_back({object.name, object.progId});
    return surroundings;
}

[[nodiscard]] bool holds(const Piece &piece, Offset offset)
{
    return piece.range.start <= offset && offset <= piece.range.end;
}

} // namespace

FilePart::FilePart(
    std::string_view text, FileKind kind, Island found, const std::vector<SharedObject> &shared)
    : island(std::move(found))
    , script(parse(text, island.pieces))
    , model(script, surroundingsOf(island, kind, shared, script.names))
{
}

FileModel::FileModel(std::string_view text, FileKind kind, const std::vector<SharedObject> &shared)
    : m_text(text)
    , m_kind(kind)
{
    for (auto &island : findIslands(text, kind))
        m_parts.push_back(std::make_unique<FilePart>(text, kind, std::move(island), shared));
}

const FilePart *FileModel::partAt(Offset offset) const
{
    for (const auto &part : m_parts) {
        const auto after = std::ranges::partition_point(
            part->island.pieces, [&](const Piece &piece) { return piece.range.end < offset; });
        if (after != part->island.pieces.end() && holds(*after, offset))
            return part.get();
    }
    return nullptr;
}

std::vector<Finding> FileModel::findings() const
{
    std::vector<Finding> findings;
    for (const auto &part : m_parts) {
        auto found = analyse(part->model);
        findings.insert(
            findings.end(), std::make_move_iterator(found.begin()), std::make_move_iterator(found.end()));
    }
    std::ranges::stable_sort(findings, {}, [](const Finding &finding) { return finding.range.start; });
    // Two jobs of a file may share a script.
    findings.erase(std::unique(findings.begin(), findings.end()), findings.end());
    return findings;
}

} // namespace kevra::script
