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
class ShownControl : public EditorControl {
public:
    ShownControl()
    {
        resize(400, 300);
        show();
    }
};

/// The same random edits and colourings on the control and on the surface in memory.
class Twins {
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
        const auto length = m_memory.Length();
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
        ASSERT_EQ(m_control.characters(), characterCount(m_memory.Text()));
        ASSERT_EQ(m_control.Selection(), m_memory.Selection());
        ASSERT_EQ(m_control.SelColor(), m_memory.SelColor());
        ASSERT_TRUE(painted(m_control) == painted(m_memory));
    }
    void compareAnywhere() { compareAround(below(m_memory.Length() + 1)); }

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
    ShownControl m_control;
    MemorySurface m_memory;
};

TEST(EditorControl, LooksAsTheSurfaceInMemoryDoesWhateverIsDone)
{
    for (unsigned seed = 1; seed <= 12; ++seed) {
        SCOPED_TRACE(seed);
        Twins twins(seed, seed % 3 == 0 ? 300 : 600'000);
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
    EXPECT_EQ(control.Length(), 0) << "none of the keys types";
}

TEST(EditorControl, ShowsColoursOfALargeTextWhereItIsScrolledTo)
{
    ShownControl control;
    std::string text;
    for (int i = 0; i < 300'000; ++i)
        text += "<b>\r\n";
    control.LoadText(text);
    ColourRuns runs;
    for (Offset at = 0; at < control.Length(); at += 5)
        runs.push_back({{at, at + 3}, blue});
    control.SetColours({0, control.Length()}, runs);
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

} // namespace
} // namespace kevra
