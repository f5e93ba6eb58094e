// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/file_analysis.h"

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

} // namespace

std::vector<Finding> analyseFile(std::string_view text, FileKind kind)
{
    std::vector<Finding> findings;
    for (const auto &island : findIslands(text, kind)) {
        Surroundings surroundings{hostOf(island, kind), !island.includes.empty() || island.incomplete, {}};
        for (const auto &object : island.objects)
            surroundings.objects.push_back({object.name, object.progId});
        auto found = analyse(parse(text, island.pieces), surroundings);
        findings.insert(
            findings.end(), std::make_move_iterator(found.begin()), std::make_move_iterator(found.end()));
    }
    std::ranges::stable_sort(findings, {}, [](const Finding &finding) { return finding.range.start; });
    // Two jobs of a file may share a script.
    findings.erase(std::unique(findings.begin(), findings.end()), findings.end());
    return findings;
}

} // namespace kevra::script
