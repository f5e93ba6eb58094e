// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/find_commands.h"

#include "colour/marks_of.h"
#include "editor/memory_surface.h"
#include "fakes/document_state.h"
#include "fakes/messages.h"
#include "find/hit_finder.h"

#include <gtest/gtest.h>

#include <random>
#include <regex>

namespace kevra {
namespace {

class FakeFindView : public FindView {
public:
    FindRequest entered() const override { return request; }
    void showCount(Offset number) override { count = number; }
    void hitSelected() override { }
    void showReplaced(Offset number) override { replaced = number; }
    void showWrapped(std::string_view text) override { wrapped = text; }

    FindRequest request;
    Offset count = -1;
    Offset replaced = -1;
    std::string wrapped;
};

class FindCommandsTest : public testing::Test {
protected:
    void load(const char *text, FindRequest request)
    {
        document.LoadText(text);
        view.request = std::move(request);
    }

    MemorySurface document;
    FakeDocumentState state;
    FakeMessages messages;
    FakeFindView view;
    FindCommands commands{{document, state}, messages, view};
};

TEST_F(FindCommandsTest, NextAfterAMissStartsFromTheTop)
{
    load("ab ab", {.text = "AB"});
    struct {
        void (FindCommands::*command)();
        TextRange selection;
        const char *message;
        const char *wrapped = "";
    } const steps[] = {
        {&FindCommands::findFirst, {0, 2}, ""},
        {&FindCommands::findNext, {3, 5}, ""},
        {&FindCommands::findFirst, {0, 2}, ""},
        {&FindCommands::findNext, {3, 5}, ""},
        {&FindCommands::findNext, {3, 5}, "No more occurences."},
        {&FindCommands::findNext, {0, 2}, "", "The search continued from the top."},
        {&FindCommands::findFirst, {0, 2}, ""},
        {&FindCommands::findNext, {3, 5}, ""},
        {&FindCommands::findPrevious, {0, 2}, ""},
        {&FindCommands::findPrevious, {0, 2}, "No more occurences."},
        {&FindCommands::findPrevious, {3, 5}, "", "The search continued from the end."},
        {&FindCommands::replaceAndFind, {5, 5}, "No more occurences."},
    };
    view.request.replacement = "xy";
    for (const auto &step : steps) {
        messages.shown.clear();
        (commands.*step.command)();
        EXPECT_EQ(document.Selection(), step.selection);
        EXPECT_EQ(messages.last(), step.message);
        EXPECT_EQ(view.wrapped, step.wrapped);
    }
    EXPECT_EQ(document.Text(), "ab xy");
}

TEST_F(FindCommandsTest, NextAfterReplaceAllStartsFromTheTop)
{
    load("ab xy ab", {.text = "xy", .replacement = "ab"});
    commands.findFirst();
    commands.replaceAll();
    view.request.text = "ab";
    commands.findNext();
    EXPECT_EQ(document.Selection(), (TextRange{0, 2}));
}

std::string crLf(const std::string &text)
{
    return std::regex_replace(text, std::regex("\n"), "\r\n");
}

TEST(HitFinder, FindsAndReplacesAsAnotherEngineDoes)
{
    constexpr const char *patterns[]
        = {"a+b?", "^b", "b$", "(a|-)\n?b", "[^a]b|-", "\\bab\\b", "(b)(-)", ".$", "(a*)*b"};
    std::mt19937 random(3);
    for (int i = 0; i < 2000; ++i) {
        std::string text(random() % 30, ' ');
        for (char &c : text)
            c = "aab-\n"[random() % 5];
        const std::string pattern = patterns[random() % std::size(patterns)];
        const FindRequest request{
            .text = pattern, .replacement = "<\\0>", .letters = Case::Match, .pattern = Pattern::Expression};
        const HitFinder finder(request);
        ASSERT_EQ(finder.fault(), "");
        const std::regex other(pattern, std::regex::ECMAScript | std::regex::multiline);
        SCOPED_TRACE(pattern + " in \"" + text + "\"");
        const auto given = crLf(text);
        const auto result = std::get<Replacement>(finder.replacedAll(given));
        auto replaced = given;
        replaced.replace(static_cast<std::size_t>(result.range.start),
            static_cast<std::size_t>(result.range.length()), result.text);
        ASSERT_EQ(replaced, crLf(std::regex_replace(text, other, "<$&>")));
        std::optional<TextRange> last;
        for (auto hit = finder.first(given, 0); hit; hit = finder.first(given, hit->end))
            last = hit;
        ASSERT_EQ(finder.last(given, std::ssize(given) + 1), last);
    }
    EXPECT_NE(HitFinder({.text = "(", .pattern = Pattern::Expression}).fault(), "");
    EXPECT_EQ(HitFinder({.text = "a(", .pattern = Pattern::Expression}).fault().find("?m"), std::string::npos)
        << "what was not entered";
    EXPECT_NE(HitFinder({.text = "a", .replacement = "\\1", .pattern = Pattern::Expression}).fault(), "");
}

TEST_F(FindCommandsTest, SaysWhyNothingHappens)
{
    using enum Icon;
    using F = FindCommands;
    constexpr auto noEntry = "No entry in \"String to Find\"";
    struct {
        void (F::*command)();
        FindRequest request;
        const char *message;
        Icon icon;
        Buttons buttons = Buttons::Ok;
    } const cases[] = {
        {&F::findFirst, {}, noEntry, Critical},
        {&F::findNext, {}, noEntry, Critical},
        {&F::countOccurrences, {}, noEntry, Critical},
        {&F::replaceAll, {}, noEntry, Critical},
        {&F::findFirst, {.text = "x"}, "No occurences.", Information},
        {&F::findFirst, {.text = "A", .letters = Case::Match}, "No occurences.", Information},
        {&F::replaceOne, {.text = "a"}, "There's nothing found yet to replace.", Critical},
        {&F::replaceAll, {.text = "\u00c9a", .replacement = "\u00e9A", .letters = Case::Match},
            "You've entered the same text to replace the original!", Critical},
        {&F::replaceAll, {.text = "a"}, "No text entered. Delete all instances of \"a\"?", Question,
            Buttons::YesNo},
        {&F::replaceAll, {.text = "a", .replacement = "bab"}, "The file is too big to process further.",
            Critical},
    };
    for (const auto &c : cases) {
        load("a cat", c.request);
        messages.shown.clear();
        (commands.*c.command)();
        EXPECT_EQ(messages.shown, (std::vector{Message{c.message, c.icon, c.buttons}}));
        EXPECT_EQ(document.Text(), "a cat");
        EXPECT_EQ(document.pointer(), MousePointer::Default);
        EXPECT_FALSE(state.unsaved);
    }
}

TEST_F(FindCommandsTest, ReplacesWhateverIsSelected)
{
    load("one two", {.text = "zzz", .replacement = "2"});
    document.Select({4, 7});
    commands.replaceOne();
    EXPECT_EQ(document.Text(), "one 2");
    EXPECT_TRUE(state.unsaved);
    view.request.replacement.clear();
    document.Select({0, 4});
    commands.replaceOne();
    EXPECT_EQ(messages.last(), "No text entered. Delete \"zzz\"?");
    EXPECT_EQ(document.Text(), "one 2");
    messages.answers = {Answer::Yes};
    commands.replaceOne();
    EXPECT_EQ(document.Text(), "2");
}

TEST_F(FindCommandsTest, ReplacedTextIsColouredAsTheToolsAre)
{
    load("<B>x</B> B", {.text = "b", .replacement = "EM"});
    commands.replaceAll();
    EXPECT_EQ(document.Text(), "<EM>x</EM> EM");
    EXPECT_EQ(marksOf(document), "cccc-ccccc---");
    EXPECT_EQ(view.replaced, 3);
    EXPECT_EQ(document.SelStart(), 13);
    state.scriptTools = true;
    load("wenn a Then\r\n'-- wenn\r\n", {.text = "wenn", .replacement = "If"});
    commands.replaceAll();
    EXPECT_EQ(document.Text(), "If a Then\r\n'-- If\r\n");
    EXPECT_EQ(marksOf(document), "cc---cccc--gggggg--");
}

TEST(CountOccurrences, CountsOverlapsAndPartsOfWords)
{
    EXPECT_EQ(countOccurrences("aaaa", "aa", Case::Ignore), 3);
    EXPECT_EQ(countOccurrences("aAaA", "aa", Case::Match), 0);
    EXPECT_EQ(countOccurrences("\xD0\x9F\xD1\x80\xD0\xA0", "\xD1\x80", Case::Ignore), 2);
    EXPECT_EQ(countOccurrences("", "a", Case::Ignore), 0);
}

/// Replaces hit by hit, as a user would; nothing when it does not end.
std::optional<std::string> byHand(std::string text, const FindRequest &request)
{
    constexpr int manyTimes = 200;
    Offset at = 0;
    for (int i = 0; i < manyTimes; ++i) {
        const auto hit = findText(text, request.text, {at, std::ssize(text)}, request.options());
        if (!hit)
            return text;
        text.replace(static_cast<std::size_t>(*hit), request.text.size(), request.replacement);
        at = *hit;
    }
    return std::nullopt;
}

TEST(ReplacedAll, GivesWhatReplacingStepByStepGives)
{
    const FindRequest special[] = {
        {.text = "aab", .replacement = "xa"}, // the next hit begins in the replacement
        {.text = "ab", .replacement = ""},
        {.text = "a", .replacement = "-", .words = Word::Whole},
        {.text = "-a", .replacement = "b-", .words = Word::Whole},
    };
    std::mt19937 random(7);
    const auto word = [&](int longest) {
        std::string made(random() % static_cast<unsigned>(longest + 1), ' ');
        for (char &c : made)
            c = "abA- "[random() % 5];
        return made;
    };
    constexpr int rounds = 20000;
    int endless = 0;
    for (int i = 0; i < rounds; ++i) {
        auto request = i < 4 ? special[i] : FindRequest{word(3), word(4)};
        if (i >= 4) {
            request.letters = i % 2 ? Case::Match : Case::Ignore;
            request.words = i % 3 ? Word::Any : Word::Whole;
        }
        const auto text = word(40);
        const auto expected = byHand(text, request);
        const auto result = replacedAll(text, request.text, request.replacement, request.options());
        SCOPED_TRACE("\"" + text + "\" \"" + request.text + "\" \"" + request.replacement + "\"");
        endless += !expected;
        ASSERT_EQ(std::holds_alternative<Replacement>(result), expected.has_value());
        if (!expected)
            continue;
        const auto &[range, put, count] = std::get<Replacement>(result);
        auto replaced = text;
        replaced.replace(
            static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()), put);
        ASSERT_EQ(replaced, *expected);
    }
    EXPECT_GT(endless, 100);
}

} // namespace
} // namespace kevra
