// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/editor_control_qt.h"

#include "editor/memory_surface.h"
#include "editor/surface_contract.h"
#include "text/words.h"

#include <QImage>
#include <QTest>

#include <functional>
#include <random>

namespace kevra {
namespace {

/// A control as a window has it: with a size, so that it can scroll.
Offset charactersBefore(const EditorControl &control, Offset position)
{
    return control.characters().between(control.lineRange(control.GetLineFromChar(position)).start, position);
}

class ShownControl : public EditorControl {
public:
    ShownControl()
    {
        resize(400, 300);
        show();
    }
};

/// One that breaks its lines, after so few characters that it always does.
class BreakingControl : public ShownControl {
public:
    BreakingControl() { setLineLimits({.longest = 6, .piece = 3}); }
};

/// The same random edits and colourings on the control and on the surface in memory.
template <typename Control> class Twins {
public:
    explicit Twins(unsigned seed, Offset size)
        : m_random(seed)
    {
        std::string text;
        while (std::ssize(text) < size)
            text += "<p>caf\xC3\xA9 <b>x</b></p>\r\n";
        both([&](EditorSurface &surface) { surface.LoadText(text); });
    }

    void step()
    {
        const auto length = m_memory.TextLength();
        const auto start = below(length + 1);
        const TextRange near{start, std::min(length, start + below(200))};
        switch (below(8)) {
        case 0:
        case 1: {
            const std::string text(static_cast<std::size_t>(below(30)), static_cast<char>('a' + below(3)));
            return both([&](EditorSurface &surface) { surface.Replace(near, text); });
        }
        case 2:
        case 3: {
            const auto colour = anyColour();
            return both([&](EditorSurface &surface) {
                surface.Select(near);
                surface.SetSelColor(colour);
                surface.SetSelLength(0);
            });
        }
        case 4: {
            const auto runs = runsIn(near, 5, below(2) == 0);
            return both([&](EditorSurface &surface) { surface.SetColours(near, runs, Ground::AsItIs); });
        }
        case 5: {
            const TextRange tail{below(4) == 0 ? start : 0, length};
            const auto runs = runsIn(tail, 2000, below(4) != 0);
            const auto ground = below(2) == 0 ? Ground::AsItIs : Ground::Black;
            return both([&](EditorSurface &surface) { surface.SetColours(tail, runs, ground); });
        }
        case 6: {
            m_control.SetFirstVisibleLine(below(m_control.lineCount()));
            return;
        }
        default:
            QCoreApplication::processEvents();
        }
    }

    void compareAround(Offset position)
    {
        for (Offset at = position; at < position + 50; ++at)
            ASSERT_EQ(m_control.ColourAt(at), m_memory.ColourAt(at)) << "at " << at;
    }
    void compare()
    {
        ASSERT_EQ(m_control.Text(), m_memory.Text());
        ASSERT_EQ(m_control.characters().all(), characterCount(m_memory.Text()));
        ASSERT_EQ(m_control.Selection(), m_memory.Selection());
        ASSERT_EQ(m_control.SelColor(), m_memory.SelColor());
        ASSERT_TRUE(painted(m_control) == painted(m_memory));
    }
    void compareAnywhere() { compareAround(below(m_memory.TextLength() + 1)); }

private:
    void both(const std::function<void(EditorSurface &)> &action)
    {
        action(m_control);
        action(m_memory);
    }
    Offset below(Offset limit) { return static_cast<Offset>(m_random() % static_cast<unsigned>(limit)); }
    Colour anyColour()
    {
        return std::array{colours::black, blue, green, Colour{0xFF}}[static_cast<std::size_t>(below(4))];
    }
    ColourRuns runsIn(TextRange range, int count, bool inOrder)
    {
        ColourRuns runs;
        for (int i = 0; i < count && !range.empty(); ++i) {
            const auto start = range.start + (inOrder ? i * range.length() / count : below(range.length()));
            runs.push_back({{start, start + below(inOrder ? range.length() / count + 1 : 40)}, anyColour()});
        }
        return runs;
    }

    std::mt19937 m_random;
    Control m_control;
    MemorySurface m_memory;
};

template <typename Control> void compareTwins(unsigned seeds, Offset large)
{
    for (unsigned seed = 1; seed <= seeds; ++seed) {
        SCOPED_TRACE(seed);
        Twins<Control> twins(seed, seed % 3 == 0 ? 300 : large);
        for (int i = 1; i <= 120; ++i) {
            twins.step();
            twins.compareAnywhere();
            if (i % 40 == 0)
                twins.compare();
            if (testing::Test::HasFatalFailure())
                return;
        }
    }
}

TEST(EditorControl, LooksAsTheSurfaceInMemoryDoesWhateverIsDone)
{
    compareTwins<ShownControl>(12, 600'000);
}

TEST(EditorControl, LooksTheSameWithBrokenLines)
{
    compareTwins<BreakingControl>(6, 60'000);
}

/// The same keys, commands and their undoing on a control that breaks lines and one that does not.
TEST(EditorControl, BreaksNothingButTheView)
{
    const std::string text
        = "<p>caf\xC3\xA9 <b>x</b> one line\r\n\r\n\t\xE2\x82\xAC\r\nMsgBox \"no end in sight\"";
    std::mt19937 random(7);
    const auto below
        = [&](Offset limit) { return static_cast<Offset>(random() % static_cast<unsigned>(limit)); };
    for (int round = 0; round < 20; ++round) {
        EditorControl plain;
        BreakingControl broken;
        const auto both = [&](const std::function<void(EditorControl &)> &action) {
            action(plain);
            action(broken);
        };
        const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            both([&](EditorControl &control) { QTest::keyClick(&control, key, modifiers); });
        };
        const auto startOfCharacter = [&](Offset position) {
            while (position > 0 && plain.Text({position, position + 1}) >= "\x80"
                && plain.Text({position, position + 1}) < "\xC0")
                --position;
            return position;
        };
        both([&](EditorControl &control) { control.LoadText(text); });
        for (int step = 0; step < 150; ++step) {
            SCOPED_TRACE(testing::Message() << "round " << round << ", step " << step);
            constexpr std::array keys{Qt::Key_A, Qt::Key_B, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Delete,
                Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Backspace, Qt::Key_Left, Qt::Key_Right,
                Qt::Key_Backtab};
            const auto what = below(18);
            if (what < 11)
                press(keys[static_cast<std::size_t>(what)]);
            else if (what < 12)
                press(below(2) == 0 ? Qt::Key_Left : Qt::Key_Right, Qt::ShiftModifier);
            else if (what < 14)
                press(below(3) == 0 ? Qt::Key_Y : Qt::Key_Z, Qt::ControlModifier);
            else if (const auto at = startOfCharacter(below(plain.TextLength() + 1)); what < 16)
                both([&](EditorControl &control) { control.Select({at, at}); });
            else if (const auto end = startOfCharacter(at + below(plain.TextLength() - at + 1)); what < 17)
                both([&](EditorControl &control) { control.Select({at, end}); });
            else
                both([&](EditorControl &control) {
                    control.replaceAsUser({at, end}, "a pasted line\r\nand more");
                });
            ASSERT_EQ(broken.Text(), plain.Text());
            ASSERT_EQ(broken.anchorAndCaret(), plain.anchorAndCaret());
            ASSERT_EQ(broken.canUndo(), plain.canUndo());
            ASSERT_EQ(broken.characters().all(), plain.characters().all());
            ASSERT_EQ(broken.lineCount(), plain.lineCount());
            const auto caret = plain.anchorAndCaret().caret;
            ASSERT_EQ(charactersBefore(broken, caret), charactersBefore(plain, caret));
            ASSERT_EQ(broken.lineRange(broken.GetLineFromChar(caret)),
                plain.lineRange(plain.GetLineFromChar(caret)));
        }
        while (plain.canUndo()) {
            both([&](EditorControl &control) { control.undo(); });
            ASSERT_EQ(broken.Text(), plain.Text()) << "after undoing, in round " << round;
        }
        ASSERT_EQ(plain.Text(), text);
        while (plain.canRedo())
            both([&](EditorControl &control) { control.redo(); });
        ASSERT_EQ(broken.Text(), plain.Text());
    }
}

TEST(EditorControl, ZoomsByKeysAndWheelAndBack)
{
    ShownControl control;
    const auto zoomAfter = [&](Qt::Key key) {
        QTest::keyClick(&control, key, Qt::ControlModifier);
        return control.SendScintilla(QsciScintillaBase::SCI_GETZOOM);
    };
    EXPECT_EQ(zoomAfter(Qt::Key_Plus), 1);
    QWheelEvent turned({50, 50}, control.mapToGlobal(QPointF(50, 50)), {}, {0, 120}, Qt::NoButton,
        Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(control.viewport(), &turned);
    EXPECT_EQ(zoomAfter(Qt::Key_Plus), 3);
    EXPECT_EQ(zoomAfter(Qt::Key_Minus), 2);
    EXPECT_EQ(zoomAfter(Qt::Key_0), 0);
    EXPECT_EQ(control.TextLength(), 0) << "none of the keys types";
}

TEST(EditorControl, ShowsColoursOfALargeTextWhereItIsScrolledTo)
{
    ShownControl control;
    std::string text;
    for (int i = 0; i < 300'000; ++i)
        text += "<b>\r\n";
    control.LoadText(text);
    ColourRuns runs;
    for (Offset at = 0; at < control.TextLength(); at += 5)
        runs.push_back({{at, at + 3}, blue});
    control.SetColours({0, control.TextLength()}, runs);
    for (const Offset line : {0, 299'900, 30'000}) {
        control.SetFirstVisibleLine(line);
        const auto picture = control.viewport()->grab().toImage();
        int blues = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < 60; ++x)
                blues += qBlue(picture.pixel(x, y)) > 200 && qRed(picture.pixel(x, y)) < 80;
        EXPECT_GT(blues, 200) << "at line " << line;
    }
}

INSTANTIATE_TYPED_TEST_SUITE_P(Scintilla, SurfaceContract, ShownControl);
INSTANTIATE_TYPED_TEST_SUITE_P(BrokenLines, SurfaceContract, BreakingControl);

} // namespace
} // namespace kevra
