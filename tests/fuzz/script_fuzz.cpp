// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a script, as each kind of file that holds script, and as a page: the tree is sound, findings
// lie in the text.
#include "page/document_findings.h"
#include "script/islands.h"
#include "script/parser.h"

#include <cstdlib>

using namespace kevra;
using namespace kevra::script;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void requireSound(const Tree &tree, NodeId id, unsigned depth)
{
    require(depth <= maxTreeDepth);
    for (const auto child : tree.children(id)) {
        require(tree[child].start >= tree[id].start && tree[child].end <= tree[id].end);
        require(tree[child].start <= tree[child].end);
        requireSound(tree, child, depth + 1);
    }
}

void requireInside(const std::vector<Finding> &findings, std::string_view text)
{
    for (const auto &finding : findings) {
        require(finding.range.start >= 0 && finding.range.start <= finding.range.end);
        require(finding.range.end <= static_cast<Offset>(text.size()));
        for (const auto &fix : finding.fixes) {
            for (const auto &edit : fix.edits)
                require(
                    edit.range.start <= edit.range.end && edit.range.end <= static_cast<Offset>(text.size()));
        }
    }
}

void requireSound(const ParsedScript &script)
{
    requireSound(script.tree, script.tree.root(), 1);
    requireInside(script.findings, script.text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const char *data, std::size_t size)
{
    const std::string_view text(data, size);
    for (const auto kind : {FileKind::Script, FileKind::HostFile, FileKind::Page, FileKind::ServerPage}) {
        for (const auto &island : findIslands(text, kind))
            requireSound(parse(text, island.pieces));
    }
    requireInside(page::DocumentAnalysis().run(text, {FileKind::Page, {}, {}}), text);
    return 0;
}
