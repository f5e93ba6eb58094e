// SPDX-License-Identifier: GPL-3.0-or-later
// Colours under real keys and edits, in the control itself.
#include "colour/marks_of.h"
#include "colour/recolouring.h"
#include "colour/typing_colouring.h"
#include "editor/editor_control_qt.h"
#include "fakes/views.h"
#include "snippets/fso_popup_qt.h"

#include <QtTest/QtTest>
#include <QtWidgets/QMenu>

#include <gtest/gtest.h>

#include <random>

namespace kevra {
namespace {

struct Fixture {
    Fixture()
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
    Fixture page;
    QTest::keyClicks(&page.document, "a<b>bold</b> and <i");
    EXPECT_EQ(marksOf(page.document), "-ccc----cccc-----cc");
    Fixture script;
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
        Fixture fixture;
        fixture.state.scriptTools = script;
        for (int step = 0; step < steps; ++step) {
            const auto length = fixture.document.Length();
            const auto start = number(length);
            fixture.document.Select({start, std::min(start + number(8), length)});
            switch (number(5)) {
            case 0:
                fixture.document.cut();
                break;
            case 1:
                fixture.document.deleteForward();
                break;
            case 2:
                fixture.document.undo();
                break;
            case 3:
                fixture.document.redo();
                break;
            default:
                // Long enough for edits that mend a part of the document only.
                QGuiApplication::clipboard()->setText(
                    bit() + bit() + (length < 9000 ? bit().repeated(number(90)) : ""));
                fixture.document.paste();
            }
            if (step % 5 == 0) {
                ASSERT_EQ(marksOf(fixture.document), fixture.wholePass()) << step << " script " << script;
            }
        }
    }
}

TEST(ColourInControl, AKeyInALongScriptMendsTheRestInAPause)
{
    Fixture fixture;
    fixture.state.scriptTools = true;
    std::string text = "x = \"a\"\r\n";
    while (text.size() <= smallScript)
        text += "If a Then MsgBox \"end if\"\r\n";
    fixture.document.LoadText(text);
    fixture.document.SetColours({0, fixture.document.Length()}, scriptRuns(text, fixture.state.codeColour));
    fixture.document.SetSelStart(5);
    QTest::keyClick(&fixture.document, Qt::Key_Backspace);
    EXPECT_EQ(fixture.document.ColourAt(9), fixture.state.codeColour)
        << "the key itself costs no more than its line";
    EXPECT_TRUE(QTest::qWaitFor([&] { return marksOf(fixture.document) == fixture.wholePass(); }));
    EXPECT_EQ(fixture.document.SelStart(), 4);
}

TEST(FsoPopup, OffersMethodsAndLosesNoKey)
{
    Fixture fixture;
    fixture.state.scriptTools = true;
    QMenu menu;
    menu.addAction("FileExists");
    menu.addAction("GetFile");
    FsoPopup popup(fixture.document, fixture.state, menu);
    const auto type = [&](const char *keys) {
        QTest::keyClicks(&fixture.document, keys);
        QCoreApplication::processEvents();
    };
    type("x = Fso.");
    ASSERT_TRUE(menu.isVisible());
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(fixture.document.Text(), "x = Fso.GetFile");

    fixture.document.LoadText("");
    type("fso.");
    ASSERT_TRUE(menu.isVisible());
    QTest::keyClick(&menu, 'z');
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(fixture.document.Text(), "fso.z");

    fixture.state.fsoMenu = false;
    type(" fso.");
    EXPECT_FALSE(menu.isVisible());
}

} // namespace
} // namespace kevra
