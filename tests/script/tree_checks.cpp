// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/tree_checks.h"

#include "script/lexer.h"

#include <gtest/gtest.h>

namespace kevra::script {

namespace {

/// The condition of Loop While is the first child and the last in the text.
bool ordered(const Tree &tree, NodeId parent)
{
    return tree[parent].kind != NodeKind::DoLoop;
}

void expectSound(const Tree &tree, NodeId id, unsigned depth, bool &sound)
{
    const auto &node = tree[id];
    Offset before = node.start;
    sound = sound && node.start <= node.end && depth <= maxTreeDepth;
    for (const auto child : tree.children(id)) {
        const auto range = tree[child].range();
        sound = sound && range.start >= (ordered(tree, id) ? before : node.start) && range.end <= node.end;
        before = range.end;
        if (!sound) {
            ADD_FAILURE() << "node " << child << " [" << range.start << ", " << range.end << ") in ["
                          << node.start << ", " << node.end << ") of kind " << static_cast<int>(node.kind);
            return;
        }
        expectSound(tree, child, depth + 1, sound);
    }
}

} // namespace

void expectSoundTree(const ParsedScript &script)
{
    const auto length = static_cast<Offset>(script.text.size());
    bool sound = script.tree[script.tree.root()].range() == TextRange{0, length};
    EXPECT_TRUE(sound);
    expectSound(script.tree, script.tree.root(), 1, sound);
    for (const auto &finding : script.findings) {
        EXPECT_LE(0, finding.range.start);
        EXPECT_LE(finding.range.start, finding.range.end);
        EXPECT_LE(finding.range.end, length);
    }
}

void expectTokensCover(std::string_view text)
{
    NameTable names;
    std::vector<TextRange> comments;
    const Piece whole{{0, static_cast<Offset>(text.size())}};
    Lexer lexer(text, {&whole, 1}, names, comments);
    std::string rest;
    std::size_t comment = 0;
    std::size_t covered = 0;
    const auto gap = [&](std::size_t end) {
        for (; covered < end; ++covered) {
            if (comment < comments.size() && static_cast<Offset>(covered) == comments[comment].start)
                covered = static_cast<std::size_t>(comments[comment++].end);
            if (covered < end)
                rest += text[covered];
        }
    };
    for (auto token = lexer.next(); token.kind != TokenKind::End; token = lexer.next()) {
        gap(token.start);
        covered = token.end;
    }
    const auto end = text.find_first_of(std::string_view("\0\x1A", 2));
    gap(std::min(end, text.size()));
    EXPECT_EQ(rest.find_first_not_of(" \t\f\v_\r\n\xEF\xBB\xBF"), std::string::npos) << rest;
}

} // namespace kevra::script
