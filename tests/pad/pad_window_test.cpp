// SPDX-License-Identifier: GPL-3.0-or-later
#include "pad/pad_window.h"

#include "editor/memory_surface.h"
#include "fakes/desktop.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

namespace kevra {
namespace {

constexpr TwipRect remembered{1500, 1200, 7500, 4500};

class PadWindowTest : public testing::Test {
protected:
    PadWindowTest()
    {
        state.padGeometry = remembered;
        open();
    }

    void open()
    {
        pad.show();
        pad.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&pad));
    }
    EditorControl &control() { return *pad.findChild<EditorControl *>("rt1"); }
    [[nodiscard]] TwipRect place() const
    {
        return {pad.x() * 15, pad.y() * 15, pad.width() * 15, pad.height() * 15};
    }
    [[nodiscard]] std::string text() { return std::string(control().Text()); }

    MemorySurface document;
    FakeClipboard clipboard;
    ApplicationState state;
    PadWindow pad{document, clipboard, state};
};

TEST_F(PadWindowTest, EveryMenuItemRunsItsCommand)
{
    const std::tuple<const char *, const char *, const char *> steps[] // item, text, clipboard
        = {{"mselallp", "abc", "old"}, {"mcutp", "", "abc"}, {"mundop", "abc", "abc"},
            {"popselall", "abc", "abc"}, {"popcut", "", "abc"}, {"popundo", "abc", "abc"},
            {"mclearp", "", "abc"}, {"mpastep", "abc", "abc"}, {"poppaste", "abcabc", "abc"},
            {"popselall", "abcabc", "abc"}, {"mcopyp", "abcabc", "abcabc"}, {"popundo", "abcabc", "abc"},
            {"popcopy", "abcabc", "abcabc"}};
    clipboard.content = "old";
    QTest::keyClicks(&control(), "abc");
    for (const auto &[item, after, clipboardAfter] : steps) {
        SCOPED_TRACE(item);
        pad.findChild<QAction *>(item)->trigger();
        EXPECT_EQ(text(), after);
        EXPECT_EQ(clipboard.content, clipboardAfter);
    }
}

TEST_F(PadWindowTest, KeysRunThePadsOwnCommandsAndUndoFollowsTyping)
{
    clipboard.content = "line\r\n";
    QTest::keyClick(&control(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text(), "line");
    control().SetSelStart(0);
    QTest::keyClicks(&control(), "kept ");
    pad.findChild<QAction *>("mundop")->trigger();
    EXPECT_EQ(text(), "kept ");
    QTest::keyClick(&control(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&control(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(clipboard.content, "kept ");
    QTest::keyClick(&control(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), "kept ");
}

TEST_F(PadWindowTest, ReopensAtItsPlaceEmptyAndInTheDocumentsFont)
{
    EXPECT_EQ(place(), remembered);
    QTest::keyClicks(&control(), "abc");
    pad.move(60, 70);
    pad.resize(400, 350);
    pad.close();
    EXPECT_EQ(state.padGeometry, (TwipRect{900, 1050, 6000, 5250}));
    document.SetFont({"Arial", 8});
    open();
    EXPECT_EQ(text(), "");
    EXPECT_EQ(place(), (TwipRect{900, 1050, 6000, 5250}));
    EXPECT_EQ(control().Font(), (EditorFont{"Arial", 8}));

    pad.showMaximized();
    EXPECT_EQ(state.padState, PadState::Other);
    pad.close();
    EXPECT_EQ(state.padGeometry, (TwipRect{900, 1050, 6000, 5250})) << "it was maximised";
    state.padGeometry = {-900000, 900000, 150, 9000000};
    open();
    EXPECT_EQ(state.padState, PadState::Normal);
    EXPECT_TRUE(pad.screen()->availableGeometry().contains(QRect(pad.pos(), pad.size())));
}

} // namespace
} // namespace kevra
