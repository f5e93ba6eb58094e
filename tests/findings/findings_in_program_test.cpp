// SPDX-License-Identifier: GPL-3.0-or-later
// The findings in the whole program: what they show, and that nothing else notices them.
#include "app/main_menu_qt.h"
#include "editor/editor_control_qt.h"
#include "fakes/program.h"

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

constexpr const char *script
    = "Option Explicit\r\nDim list, n\r\nlist = CreateObject(\"Scripting.Dictionary\")\r\n"
      "If n = 1 Then\r\n  MsgBox \"one\" & undeclared\r\nEnd If\r\nFor n = 1 To 3\r\n";

class FindingsInProgram : public ProgramTest {
protected:
    FindingsInProgram() { put("list.vbs", script); }

    template <typename Predicate> static bool eventually(Predicate predicate)
    {
        constexpr int patience = 60'000; // milliseconds, for a machine that does much else
        return QTest::qWaitFor(predicate, patience);
    }
    void run(const char *item) { app().commands.run(item); }
    template <typename T> T &control(const char *name) { return find<T>(app().mainWindow(), name); }
    bool isMarked(Offset position)
    {
        unsigned long marks = 0;
        for (unsigned long indicator = 21; indicator <= 23; ++indicator)
            marks += static_cast<unsigned long>(
                document().SendScintilla(Sci::SCI_INDICATORVALUEAT, indicator, static_cast<long>(position)));
        return marks > 0;
    }
    bool isMarkedSomewhere()
    {
        for (Offset i = 0; i < document().TextLength(); ++i)
            if (isMarked(i))
                return true;
        return false;
    }
};

TEST_F(FindingsInProgram, AnalysesInThePausesOfTyping)
{
    start("list.vbs");
    auto &field = control<QToolButton>("banalysis");
    ASSERT_TRUE(eventually([&] { return field.text().contains("findings"); }));
    EXPECT_TRUE(eventually([&] { return isMarked(30); })) << "the list without Set";
    const auto before = field.text();
    document().SetSelStart(document().TextLength());
    QTest::keyClicks(&document(), "Next");
    EXPECT_TRUE(eventually([&] { return field.text() != before; }));
    run("manalysetyping");
    EXPECT_FALSE(field.isVisibleTo(&app().mainWindow()));
}

TEST_F(FindingsInProgram, MarksItsOwnPlaceBehindAnOverlongLine)
{
    put("long.vbs",
        "'" + QByteArray(40'000, 'x') + "\r\nDim a\r\na = CreateObject(\"Scripting.Dictionary\")\r\n");
    start("long.vbs");
    run("mnextfinding");
    document().SetSelStart(document().TextLength());
    const auto place = static_cast<Offset>(document().Text().find("a = Create"));
    EXPECT_TRUE(eventually([&] { return isMarked(document().breaks().toControl(place)); }));
    EXPECT_FALSE(isMarked(place)) << "inside the long line";
}

TEST_F(FindingsInProgram, ListGoesToTheFindingAndFixesIt)
{
    start("list.vbs");
    run("mfindings");
    auto &list = control<QTreeView>("tfindings");
    const auto rows = list.model()->rowCount();
    ASSERT_GT(rows, 2);
    run("mnextfinding");
    EXPECT_EQ(document().GetLineFromChar(document().SelStart()), 2);
    EXPECT_EQ(list.currentIndex().data().toInt(), 3);
    EXPECT_TRUE(control<QTextBrowser>("twhy").toPlainText().contains("Set"));
    click(app().mainWindow(), "bfix1");
    EXPECT_TRUE(document().Text().find("\nSet list = ") != std::string_view::npos);
    EXPECT_LT(list.model()->rowCount(), rows);
    document().undo();
    EXPECT_EQ(document().Text(), script) << "one step takes it back";
    int row = 0;
    while (row < rows && list.model()->index(row, 0).data().toInt() != 7)
        ++row;
    list.setCurrentIndex(list.model()->index(row, 0));
    EXPECT_EQ(document().GetLineFromChar(document().SelStart()), 6);
    run("mfindings");
    EXPECT_FALSE(control<QFrame>("frfindings").isVisible());
}

struct Seen {
    std::string text;
    std::vector<std::uint32_t> colours;
    std::vector<Offset> places;
    std::string flags;
    std::string information;

    friend bool operator==(const Seen &, const Seen &) = default;
};

/// A session with and without the analysis: everything the user and the checks see of the document is alike.
TEST_F(FindingsInProgram, ChangesNothingButWhatItShows)
{
    const auto session = [this](bool analysed) {
        start("list.vbs");
        if (!analysed)
            run("manalysetyping");
        std::vector<Seen> seen;
        const auto look = [&] {
            if (analysed) {
                run("manalyse");
                EXPECT_TRUE(eventually([&] { return isMarkedSomewhere(); }));
            }
            auto &t1 = document();
            Seen now{std::string(t1.Text()), {}, {}, {}, app().mainWindow().information().toStdString()};
            for (Offset i = 0; i < t1.TextLength(); ++i)
                now.colours.push_back(t1.ColourAt(i).value);
            const auto selection = t1.anchorAndCaret();
            now.places = {selection.anchor, selection.caret, t1.FirstVisibleLine(),
                t1.SendScintilla(Sci::SCI_GETXOFFSET), static_cast<Offset>(t1.TypingColor().value)};
            for (const bool flag : {t1.isAtSavePoint(), t1.canUndo(), t1.canRedo(),
                     app().shown().document.state.unsaved, app().shown().document.state.busyLoadingOrSaving})
                now.flags += flag ? '1' : '0';
            seen.push_back(std::move(now));
        };
        const auto keys = [&](const char *text) { QTest::keyClicks(&document(), text); };
        const auto key = [&](Qt::Key which, Qt::KeyboardModifiers with = {}) {
            QTest::keyClick(&document(), which, with);
        };
        look();
        run("mrundebug");
        look();
        for (int i = 0; i < 3; ++i) {
            key(Qt::Key_End, Qt::ControlModifier);
            keys("x = \"a\" & (1");
            look();
            key(Qt::Key_Return);
            look();
            keys("Next ' done");
            key(Qt::Key_Left, Qt::ShiftModifier);
            look();
            key(Qt::Key_Home);
            key(Qt::Key_Delete);
            look();
            run("mundo");
            look();
        }
        run("mselall");
        run("mcopy");
        run("mpaste");
        key(Qt::Key_PageUp);
        look();
        run("mrundebug");
        look();
        while (document().canUndo()) {
            run("mundo");
            look();
        }
        while (document().canRedo())
            run("mredo");
        look();
        while (document().canUndo())
            run("mundo");
        run("msaveplain"); // nothing is left to be recovered
        return seen;
    };
    const auto with = session(true);
    const auto without = session(false);
    ASSERT_EQ(with.size(), without.size());
    for (std::size_t i = 0; i < with.size(); ++i)
        EXPECT_TRUE(with[i] == without[i])
            << "step " << i << ": " << with[i].flags << ' ' << with[i].information;
}

} // namespace
} // namespace kevra
