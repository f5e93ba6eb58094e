// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/beside_commands.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

/// What was asked of the page and the text, a word each; the text is made ready when the test says so.
struct Fixture : BesidePage, BesideDocument {
    BesideCommands commands{*this, *this};
    std::string asked;
    std::string note;
    std::string text = "<p>one</p><p>two</p>";
    Offset place = 0;
    TextRange selected;
    std::optional<PageTextRequest> wanted;

    bool load(const std::string &path, std::shared_ptr<const PageText>) override
    {
        return add("load:" + path);
    }
    void reload(std::shared_ptr<const PageText>) override { add("reload"); }
    void unload() override { }
    bool startBrowser(const std::string &) override { return true; }
    void prepare(PageTextRequest request) override { wanted = std::move(request); }
    void startTimer(std::chrono::milliseconds) override { add("pause"); }
    void ask(const std::string &call) override { add(call.substr(0, call.find_first_of("\"1"))); }
    void showNote(BesideNote, std::string_view said) override { note = said; }
    void selectText(TextRange range) override { selected = range; }
    Offset caret() const override { return place; }

    bool add(const std::string &word)
    {
        asked += word + ' ';
        return true;
    }
    void makeReady()
    {
        const auto request = *std::exchange(wanted, std::nullopt);
        commands.prepared(std::make_shared<PageText>(makePageText(text, request)));
    }
    /// What was asked by this.
    template <typename Step> std::string by(Step step)
    {
        asked.clear();
        step();
        return asked;
    }
    void show()
    {
        commands.setDocument("/a/b.html", true);
        commands.open();
        makeReady();
        commands.pageMessage("ready");
        commands.answered("done");
    }
    void type()
    {
        commands.textChanged();
        commands.pauseOver();
        makeReady();
    }
};

TEST(BesideCommands, ChangesThePageInPlaceOneQuestionAtATime)
{
    Fixture f;
    EXPECT_EQ(f.by([&] { f.show(); }), "load:/a/b.html following.show( ");
    EXPECT_EQ(f.by([&] { f.type(); }), "pause following.show( ");
    EXPECT_EQ(f.by([&] { f.type(); }), "pause ") << "not answered yet";
    EXPECT_EQ(f.by([&] { f.commands.answered("done"); }), "following.show( ")
        << "the newest text is shown then";
}

TEST(BesideCommands, ShowsNoTextOfTheDocumentBefore)
{
    Fixture f;
    f.commands.setDocument("/a/b.html", true);
    f.commands.open();
    f.commands.textChanged();
    f.commands.setDocument("/a/c.html", true);
    EXPECT_EQ(f.by([&] { f.makeReady(); }), "");
    EXPECT_EQ(f.by([&] { f.makeReady(); }), "load:/a/c.html ");
}

TEST(BesideCommands, LoadsAnewWhatIsRefusedButNotForEver)
{
    Fixture f;
    f.show();
    f.type();
    EXPECT_EQ(f.by([&] { f.commands.answered("refused: SCRIPT"); }), "pause ");
    f.commands.pauseOver();
    EXPECT_EQ(f.by([&] { f.makeReady(); }), "reload ");
    f.commands.pageMessage("ready");
    EXPECT_EQ(f.by([&] { f.commands.answered("refused: again"); }), "") << "only with another text";
}

TEST(BesideCommands, ClicksCountOnlyForTheTextTheyWereMadeIn)
{
    Fixture f;
    f.show();
    f.commands.pageMessage("click 10");
    EXPECT_EQ(f.selected, (TextRange{10, 10}));
    f.commands.pageMessage("pick 10");
    EXPECT_EQ(f.selected, (TextRange{10, 20}));
    for (const auto *bad : {"pick 11", "pick -1", "pick 99999999999999999999", "pick 0x", "pick", "click "})
        f.commands.pageMessage(bad);
    f.commands.textChanged();
    f.commands.pageMessage("pick 0");
    EXPECT_EQ(f.selected, (TextRange{10, 20}));
}

TEST(BesideCommands, LeavesAPageThatHasEndedAlone)
{
    for (const auto end : {&BesideCommands::stop, &BesideCommands::pageEnded, &BesideCommands::close}) {
        Fixture f;
        f.show();
        (f.commands.*end)();
        EXPECT_EQ(f.by([&] {
            f.commands.textChanged();
            f.commands.caretMoved();
            f.commands.answered("done");
            f.commands.answerOverdue();
        }),
            "");
    }
    Fixture script;
    script.commands.setDocument("/a/b.vbs", false);
    script.commands.open();
    EXPECT_FALSE(script.wanted);
    EXPECT_NE(script.note, "");
    Fixture large;
    large.commands.open();
    large.commands.prepared(nullptr);
    EXPECT_NE(large.note, "") << "no memory for the first text";
}

} // namespace
} // namespace kevra
