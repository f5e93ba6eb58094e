// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/file_analysis.h"

#include "script/file_model.h"

#include <algorithm>
#include <iterator>

namespace kevra::script {

std::vector<Finding> analyseFile(std::string_view text, FileKind kind)
{
    return FileModel(text, kind).findings();
}

void mergeFindings(std::vector<Finding> &findings, std::vector<Finding> more)
{
    const auto middle = std::ssize(findings);
    std::ranges::move(more, std::back_inserter(findings));
    std::ranges::inplace_merge(
        findings, findings.begin() + middle, {}, [](const Finding &finding) { return finding.range.start; });
}

} // namespace kevra::script
