// SPDX-License-Identifier: GPL-3.0-or-later
// Colours under real keys and edits, in the control itself.
#include "colour/fso_popup_qt.h"
#include "colour/marks_of.h"
#include "colour/mending.h"
#include "colour/typing_colouring.h"
#include "editor/editor_control_qt.h"
#include "fakes/views.h"

#include <QtTest/QtTest>
#include <QtWidgets/QMenu>

#include <gtest/gtest.h>

#include <random>

namespace kevra {
namespace {

struct Desk {
    Desk()
        : typing(document, state, view, [](TextRange) {})
    {
        document.setTypingHandler(&typing);
        document.resize(600, 400);
        document.show();
        document.setFocus();
        QApplication::setActiveWindow(&document);
        QCoreApplication::processEvents();
    }

    std::string wholePass() const { return marksOfWholePass(document.Text(), state.scriptTools); }

    EditorControl document;
    DocumentState state;
    FakeMainView view;
    TypingColouring typing;
};

TEST(ColourInControl, FollowsKeys)
{
    Desk page;
    QTest::keyClicks(&page.document, "a<b>bold</b> and <i");
    EXPECT_EQ(marksOf(page.document), "-ccc----cccc-----cc");
    Desk script;
    script.state.scriptTools = true;
    QTest::keyClicks(&script.document, "If x Then");
    EXPECT_EQ(marksOf(script.document), "---------");
    QTest::keyClick(&script.document, Qt::Key_Return);
    QTest::keyClicks(&script.document, "End If");
    EXPECT_EQ(marksOf(script.document), "cc---cccc--------");
}

TEST(ColourInControl, EditCommandsLeaveWhatAWholePassWouldPaint)
{
    const QStringList bits{"<b>", "<", ">", "text", "\n", "if ", "next", "\"", "<<x>>", "'--", "end sub\n",
        "\u00e9", "<i class=\"x\">", "<<", ">>"};
    std::mt19937 random(3);
    const auto number = [&](Offset most) { return std::uniform_int_distribution<Offset>(0, most)(random); };
    const auto bit = [&] { return bits[number(bits.size() - 1)]; };
    for (const auto &[script, steps] : {std::pair(false, 2000), {true, 400}}) {
        Desk desk;
        desk.state.scriptTools = script;
        for (int step = 0; step < steps; ++step) {
            const auto length = desk.document.Length();
            const auto start = number(length);
            desk.document.Select({start, std::min(start + number(8), length)});
            switch (number(5)) {
            case 0:
                desk.document.cut();
                break;
            case 1:
                desk.document.deleteForward();
                break;
            case 2:
                desk.document.undo();
                break;
            case 3:
                desk.document.redo();
                break;
            default:
                // Long enough for edits that mend a part of the document only.
                QGuiApplication::clipboard()->setText(
                    bit() + bit() + (length < 9000 ? bit().repeated(number(90)) : ""));
                desk.document.paste();
            }
            if (step % 5 == 0) {
                ASSERT_EQ(marksOf(desk.document), desk.wholePass()) << step << " script " << script;
            }
        }
    }
}

TEST(ColourInControl, AKeyInALongScriptMendsTheRestInAPause)
{
    Desk desk;
    desk.state.scriptTools = true;
    std::string text = "x = \"a\"\r\n";
    while (text.size() <= smallScript)
        text += "If a Then MsgBox \"end if\"\r\n";
    desk.document.LoadText(text);
    desk.document.SetColours({0, desk.document.Length()}, scriptRuns(text, desk.state.codeColour));
    desk.document.SetSelStart(5);
    QTest::keyClick(&desk.document, Qt::Key_Backspace);
    EXPECT_EQ(desk.document.ColourAt(9), desk.state.codeColour)
        << "the key itself costs no more than its line";
    EXPECT_TRUE(QTest::qWaitFor([&] { return marksOf(desk.document) == desk.wholePass(); }));
    EXPECT_EQ(desk.document.SelStart(), 4);
}

TEST(FsoPopup, OffersMethodsAndLosesNoKey)
{
    Desk desk;
    desk.state.scriptTools = true;
    QMenu menu;
    menu.addAction("FileExists");
    menu.addAction("GetFile");
    FsoPopup popup(desk.document, desk.state, menu);
    const auto type = [&](const char *keys) {
        QTest::keyClicks(&desk.document, keys);
        QCoreApplication::processEvents();
    };
    type("x = Fso.");
    ASSERT_TRUE(menu.isVisible());
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(desk.document.Text(), "x = Fso.GetFile");

    desk.document.LoadText("");
    type("fso.");
    ASSERT_TRUE(menu.isVisible());
    QTest::keyClick(&menu, 'z');
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(desk.document.Text(), "fso.z");

    desk.state.fsoMenu = false;
    type(" fso.");
    EXPECT_FALSE(menu.isVisible());
}

} // namespace
} // namespace kevra
