// SPDX-License-Identifier: GPL-3.0-or-later
// What editors do to a text, on generated programs: the tree says whether the program is still the same.
#include "script/fixes.h"
#include "script/formatting.h"
#include "script/program_generator.h"
#include "script/rename.h"

#include <gtest/gtest.h>

#include <cctype>
#include <random>

using namespace kevra;
using namespace kevra::script;

namespace {

/// Other programs: --gtest_shuffle --gtest_repeat=50 --gtest_filter=Editing*
std::uint64_t firstSeed()
{
    const auto seed = GTEST_FLAG_GET(shuffle) ? ::testing::UnitTest::GetInstance()->random_seed() : 1;
    return static_cast<std::uint64_t>(seed) * 1000;
}

/// Every node in order, names without regard to case; `oldName` reads as `newName`.
std::string shape(std::string_view text, std::string_view oldName = {}, std::string_view newName = {})
{
    const auto parsed = parse(text);
    std::string out = std::to_string(parsed.findings.size());
    for (NodeId id = 1; id < parsed.tree.size(); ++id) {
        const auto &node = parsed.tree[id];
        auto name = folded(parsed.names.spelling(node.name));
        if (!oldName.empty() && name == folded(oldName))
            name = folded(newName);
        (out += ' ') += std::to_string(static_cast<int>(node.kind)) + ',' + std::to_string(node.flags) + ','
            + std::to_string(node.firstChild) + ',' + std::to_string(node.nextSibling) + name;
        if (node.kind == NodeKind::String || node.kind == NodeKind::Number || node.kind == NodeKind::Date)
            out += folded(parsed.textOf(id));
    }
    return out;
}

/// The same program written by somebody else: other indentation, other case, other blanks.
std::string untidied(const std::string &program, std::mt19937_64 &random)
{
    std::string out;
    bool inString = false; // or in a date
    bool inComment = false;
    for (std::size_t i = 0; i < program.size(); ++i) {
        const char c = program[i];
        const bool lineStart = i == 0 || program[i - 1] == '\n';
        inComment = (inComment || (c == '\'' && !inString)) && c != '\n';
        inString = inString != ((c == '"' || c == '#') && !inComment) && c != '\n';
        if (lineStart)
            out.append(random() % 3, random() % 2 == 0 ? ' ' : '\t');
        const bool code = !inString && !inComment && c != '"' && c != '#';
        if (code && c == ',')
            out.append(random() % 2, ' ');
        out += code && random() % 4 == 0 ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
    }
    return out;
}

TEST(Editing, RenamingChangesTheNameAndNothingElse)
{
    std::size_t renamings = 0;
    std::size_t refusals = 0;
    for (auto seed = firstSeed(); seed < firstSeed() + 12; ++seed) {
        const auto program = kevra::testing::generateProgram(seed);
        const FileModel file(program, FileKind::Script);
        const auto &part = *file.parts().at(0);
        for (SymbolId id = 1; id < part.model.symbols.symbolCount(); id += 7) {
            const auto thing = namedAt(file, part.model.declarationRange(id).start);
            ASSERT_TRUE(thing) << seed;
            const auto result = renamed(file, *thing, "entirelyNew");
            ++(result.refusal.empty() ? renamings : refusals);
            if (!result.refusal.empty())
                continue;
            const auto spelled = part.script.textOf(thing->place); // with its brackets
            const auto after = edited(program, result.edits);
            // Other things may have the name; those stay.
            const auto back = FileModel(after, FileKind::Script);
            const auto again = namedAt(back, result.edits.front().range.start);
            ASSERT_TRUE(again) << seed;
            const auto returned = renamed(back, *again, spelled);
            ASSERT_EQ(returned.edits.size(), result.edits.size()) << seed << ' ' << thing->name;
            ASSERT_EQ(shape(edited(after, returned.edits)), shape(program)) << seed << ' ' << thing->name;
            ASSERT_EQ(shape(after, "entirelyNew", thing->name), shape(program)) << seed << ' ' << thing->name;
            ASSERT_EQ(back.findings().size(), file.findings().size()) << seed << ' ' << thing->name;
        }
    }
    EXPECT_GT(renamings, 10 * refusals);
}

TEST(Editing, FormattingKeepsTheProgramAndItself)
{
    std::mt19937_64 random(firstSeed());
    for (auto seed = firstSeed(); seed < firstSeed() + 25; ++seed) {
        const auto program = kevra::testing::generateProgram(seed);
        const auto untidy = untidied(program, random);
        const FormatOptions options{static_cast<unsigned>(2 + seed % 7), seed % 2 == 0};
        const FileModel file(untidy, FileKind::Script);
        const auto once = edited(untidy, formatted(file, options));
        ASSERT_EQ(shape(once), shape(program)) << seed << '\n' << untidy;
        const auto more = formatted(FileModel(once, FileKind::Script), options);
        ASSERT_TRUE(more.empty()) << seed << '\n' << once;
    }
}

TEST(Editing, FormatsWhatPeopleWrite)
{
    const struct {
        const char *name;
        FileKind kind;
        const char *before;
        const char *after;
    } cases[] = {
        {"blocks and their parts", FileKind::Script,
            "if a then\nb=1 ' note\n ' other\nelseif c then\nd\nelse\ne\nend if",
            "If a Then\n  b = 1 ' note\n  ' other\nElseIf c Then\n  d\nElse\n  e\nEnd If"},
        {"cases", FileKind::Script, "Select Case x\nCase 1,2\na\nCase Else\nb\nEnd Select",
            "Select Case x\n  Case 1, 2\n    a\n  Case Else\n    b\nEnd Select"},
        {"on one line", FileKind::Script, "If a Then b Else c\nFor i=1 To 3:x:Next\nIf a Then b : End If\nd",
            "If a Then b Else c\nFor i = 1 To 3:x:Next\nIf a Then b : End If\nd"},
        {"signs and blanks that mean something", FileKind::Script,
            "x=-1*- 2\nf (a)\nf(a)\nWith q\nf .a\ns .b,-1\nEnd With\ng , 2",
            "x = -1 * - 2\nf (a)\nf(a)\nWith q\n  f .a\n  s .b, -1\nEnd With\ng, 2"},
        {"continued lines", FileKind::Script, "Sub s\nx=1+ _\n    2\nEnd Sub",
            "Sub s\n  x = 1 + _\n      2\nEnd Sub"},
        {"names like words", FileKind::Script, "ERROR=1\nx.END\nproperty=step",
            "ERROR = 1\nx.END\nproperty = step"},
        {"an end too many", FileKind::Script, "Sub s\nEnd If\nx\nEnd Sub\ny",
            "Sub s\n  End If\n  x\nEnd Sub\ny"},
        {"in a page", FileKind::Page,
            "<script language=\"VBScript\">\n    sub s\n  x\n    end sub\n  </script>\n<p  a = 1>",
            "<script language=\"VBScript\">\n    Sub s\n      x\n    End Sub\n  </script>\n<p  a = 1>"},
    };
    for (const auto &c : cases) {
        const FileModel file(c.before, c.kind);
        EXPECT_EQ(edited(c.before, formatted(file, {2, true})), c.after) << c.name;
        EXPECT_TRUE(formatted(FileModel(c.after, c.kind), {2, true}).empty()) << c.name;
    }
}

} // namespace
