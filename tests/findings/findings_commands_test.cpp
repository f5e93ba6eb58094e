// SPDX-License-Identifier: GPL-3.0-or-later
#include "findings/findings_commands.h"

#include "editor/memory_surface.h"
#include "script/fixes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace kevra {
namespace {

struct Fixture : FindingsView {
    MemorySurface document;
    FindingsCommands commands{document, *this, [] { return page::DocumentPlace(); }};
    std::string told;

    explicit Fixture(std::string_view text)
        : document(text)
    {
    }
    void showFindings() override { }
    void showCurrent(std::size_t) override { }
    void showNote(std::string_view text) override { told = text; }
    void applyEdit(const LineEdit &edit) override { replace(edit.range, edit.text); }
    void replace(TextRange range, std::string_view text)
    {
        document.Replace(range, text);
        commands.textChanged(range.start, range.length(), std::ssize(text));
    }
    std::vector<Offset> visited(void (FindingsCommands::*go)(), int times)
    {
        std::vector<Offset> lines;
        for (int i = 0; i < times; ++i) {
            (commands.*go)();
            lines.push_back(document.GetLineFromChar(document.SelStart()) + 1);
        }
        return lines;
    }
};

TEST(FindingList, FindingsStayWithTheirTextHoweverItIsEdited)
{
    std::mt19937 random(19);
    for (int round = 0; round < 50; ++round) {
        std::string text;
        std::vector<script::Finding> findings;
        for (int i = 0; i < 20; ++i) {
            text += "....";
            const auto word = "<" + std::to_string(i) + ">";
            const auto start = std::ssize(text);
            findings.push_back({script::Rule::MissingSet, {start, start + std::ssize(word)}, word, {}, {}});
            text += word;
        }
        FindingList list;
        list.replace(findings);
        for (int edit = 0; edit < 100; ++edit) {
            const auto at = random() % (text.size() + 1);
            const auto isInside = [&](std::size_t place) {
                return place > 0 && place < text.size() && text[place] != '.' && text[place] != '<';
            };
            const std::size_t removed = at < text.size() && text[at] == '.' ? random() % 2 : 0;
            if (isInside(at) || (removed == 0 && text.size() > 600))
                continue;
            const std::string added(random() % 3, '.');
            text.replace(at, removed, added);
            list.textChanged(static_cast<Offset>(at), static_cast<Offset>(removed), std::ssize(added));
        }
        for (std::size_t i = 0; i < list.size(); ++i) {
            const auto &range = list.at(i).range;
            ASSERT_EQ(
                text.substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length())),
                list.at(i).what);
        }
    }
}

constexpr std::string_view threeFaults = "Option Explicit\r\nx = 1\r\nDim a\r\na = 1 : y = 2\r\nMsgBox a\r\n";

TEST(FindingsCommands, GoRoundAndLeaveLowerLevelsOut)
{
    Fixture f(threeFaults);
    f.commands.setLevel(script::Level::Error);
    EXPECT_EQ(f.visited(&FindingsCommands::goToNext, 3), (std::vector<Offset>{2, 4, 2}));
    EXPECT_EQ(f.visited(&FindingsCommands::goToPrevious, 2), (std::vector<Offset>{4, 2}));
    EXPECT_EQ(f.commands.list().summary(), "2 findings");
    f.replace({17, 24}, "");
    EXPECT_EQ(f.visited(&FindingsCommands::goToNext, 1).front(), 3) << "the text has moved on";
}

TEST(FindingsCommands, ResultsOfAnOlderTextAreDropped)
{
    Fixture f(threeFaults);
    const auto revision = f.commands.revision();
    f.replace({0, 0}, "'");
    f.commands.accept({}, revision);
    EXPECT_EQ(f.commands.list().summary(), "");
    f.commands.accept({}, f.commands.revision());
    EXPECT_EQ(f.commands.list().summary(), "Analysis: no findings");
    f.replace({0, f.document.TextLength()}, "MsgBox 1");
    EXPECT_EQ(f.commands.list().summary(), "") << "another text has come";
}

TEST(FindingsCommands, FixIsOneEditOfTheTextAsItIsNow)
{
    Fixture f("Dim list\r\nlist = CreateObject(\"Scripting.Dictionary\")\r\n");
    f.document.SetSelStart(12);
    const auto offered = f.commands.fixesAtCaret();
    ASSERT_FALSE(offered.empty());
    f.replace({0, 0}, "'\r\n");
    f.commands.applyFix(offered.front());
    EXPECT_EQ(f.document.Text(), "'\r\nDim list\r\nSet list = CreateObject(\"Scripting.Dictionary\")\r\n");

    Fixture gone("Dim list\r\nlist = CreateObject(\"Scripting.Dictionary\")\r\n");
    gone.document.SetSelStart(12);
    const auto stale = gone.commands.fixesAtCaret();
    gone.replace({10, 10}, "Set ");
    const auto before = std::string(gone.document.Text());
    gone.commands.applyFix(stale.front());
    EXPECT_EQ(gone.document.Text(), before);
    EXPECT_FALSE(gone.told.empty());
}

} // namespace
} // namespace kevra
