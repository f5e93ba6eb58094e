// SPDX-License-Identifier: GPL-3.0-or-later
// Colours under real keys and edits, in the control itself.
#include "colour/marks_of.h"
#include "colour/reference_colouring.h"
#include "colour/typing_colouring.h"
#include "editor/editor_control_qt.h"
#include "fakes/document_state.h"
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
        : typing({document, state}, view, [](TextRange) {})
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
    FakeDocumentState state;
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

/// The marks of a script after only the touched lines were coloured step by step.
std::string withLinesColoured(std::string marks, std::string_view text, TextRange touched)
{
    const auto before = text.rfind('\n', static_cast<std::size_t>(touched.start) - 1);
    auto start = touched.start == 0 || before == std::string_view::npos ? 0 : before + 1;
    auto end = std::min(text.find('\r', static_cast<std::size_t>(touched.end)), text.size());
    while (start > 0 && marks[start - 1] == 'o')
        start = start < 3 ? 0 : text.rfind('\n', start - 2) + 1;
    while (end < text.size() && marks[end] == 'o')
        end = std::min(text.find('\r', end + 1), text.size());
    const auto lines = QString::fromUtf8(text.data() + start, static_cast<qsizetype>(end - start));
    ReferenceColouring reference(lines.toStdU32String());
    colourScriptStepByStep(reference, colours::defaultCode);
    MemorySurface coloured(text.substr(start, end - start));
    auto at = Offset{0};
    for (std::size_t i = 0; i < reference.text.size(); ++i) {
        const auto size = QString::fromUcs4(&reference.text[i], 1).toUtf8().size();
        const ColourRun run{{at, at + size}, reference.colour[i]};
        coloured.SetColours(run.range, {&run, 1});
        at += size;
    }
    return marks.replace(start, end - start, marksOf(coloured));
}

TEST(ColourInControl, EditCommandsLeaveWhatTheProceduresPaint)
{
    const QStringList bits{"<b>", "<", ">", "text", "\n", "if ", "next", "\"", "<<x>>", "'--", "end sub\n",
        "\u00e9", "<i class=\"x\">", "<<", ">>"};
    std::mt19937 random(3);
    const auto number = [&](Offset max) { return std::uniform_int_distribution<Offset>(0, max)(random); };
    const auto bit = [&] { return bits[number(bits.size() - 1)]; };
    for (const bool script : {false, true}) {
        Fixture fixture;
        fixture.state.scriptTools = script;
        auto &document = fixture.document;
        std::string marks; // of the script
        QObject::connect(&document, &EditorControl::edited, &document, [&](TextRange touched, EditKind) {
            const auto removed = std::ssize(marks) + touched.length() - document.TextLength();
            marks.replace(static_cast<std::size_t>(touched.start), static_cast<std::size_t>(removed),
                std::string(static_cast<std::size_t>(touched.length()), '-'));
            marks = withLinesColoured(marks, document.Text(), touched);
        });
        for (int step = 0; step < (script ? 300 : 2000); ++step) {
            const auto length = document.TextLength();
            // Between characters: the reference cannot read half a character.
            const auto between = [&](Offset at) {
                const auto byte = document.Text({at, at + 1});
                return !byte.empty() && (byte.front() & 0xC0) == 0x80 ? at - 1 : at;
            };
            const auto start = between(number(length));
            document.Select({start, between(std::min(start + number(8), length))});
            switch (number(5)) {
            case 0:
                document.cut();
                break;
            case 1:
                QTest::keyClick(&document, Qt::Key_Delete);
                break;
            case 2:
                document.undo();
                break;
            case 3:
                document.redo();
                break;
            default:
                // Long enough for edits that recolour only a part of the document.
                QGuiApplication::clipboard()->setText(
                    bit() + bit() + (length < 9000 ? bit().repeated(number(90)) : ""));
                document.paste();
            }
            if (script || step % 5 == 0) {
                ASSERT_EQ(marksOf(document), script ? marks : fixture.wholePass()) << step;
            }
        }
    }
}

TEST(ColourInControl, AScriptLineIsColouredWhenItIsFinished)
{
    Fixture script;
    script.state.scriptTools = true;
    auto &document = script.document;
    document.LoadText("If a Then\r\n\r\nDim b");
    document.SetColours({0, 9}, std::vector{ColourRun{{0, 9}, colours::fault}});
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&document, key, modifiers);
    };
    document.SetSelStart(11);
    QTest::keyClicks(&document, "Dim xy");
    press(Qt::Key_Backspace);
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(document.Text(), "If a Then\r\nDim x\r\nDim b");
    EXPECT_EQ(marksOf(document), "rrrrrrrrr--------------") << "a word that is still being typed stays black";
    document.SetSelStart(document.TextLength());
    press(Qt::Key_Backspace);
    EXPECT_EQ(marksOf(document), "rrrrrrrrr---------ccc-") << "only the line of the key";
    QTest::mouseClick(document.viewport(), Qt::LeftButton, {}, {300, 200});
    EXPECT_EQ(marksOf(document), "rrrrrrrrr--ccc----ccc-") << "a click finishes lines";
    document.SetSelStart(9);
    press(Qt::Key_Backspace);
    EXPECT_EQ(marksOf(document),
        "cc------"
        "--ccc----ccc-")
        << "an edited line is not a faulty one any more";
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
    QTest::keyClick(&menu, 'g');
    EXPECT_TRUE(menu.isVisible() && !menu.actions()[0]->isVisible()) << "what does not begin so is left out";
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_EQ(fixture.document.Text(), "fso.GetFile");

    fixture.document.LoadText("");
    type("fso.");
    ASSERT_TRUE(menu.isVisible() && menu.actions()[0]->isVisible());
    QTest::keyClick(&menu, 'z');
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(fixture.document.Text(), "fso.z");

    fixture.state.options.fsoMenu = false;
    type(" fso.");
    EXPECT_FALSE(menu.isVisible());
}

} // namespace
} // namespace kevra
