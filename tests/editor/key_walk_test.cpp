// SPDX-License-Identifier: GPL-3.0-or-later
// A long walk of keys, clicks and drags through the control and through the bare control of the library.
// KEVRA_WALK_STEPS and KEVRA_WALK_SEED, in the environment, walk further and elsewhere.
#include "colour/typing_colouring.h"
#include "editor/editor_control_qt.h"
#include "fakes/document_state.h"
#include "fakes/views.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QStyleHints>
#include <QTest>

#include <random>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

class BareControl : public Sci {
public:
    BareControl()
    {
        for (const auto &[message, first, second] :
            std::vector<std::tuple<unsigned, unsigned long, long>>{{SCI_SETCODEPAGE, SC_CP_UTF8, 0},
                {SCI_SETEOLMODE, SC_EOL_CRLF, 0}, {SCI_SETMARGINWIDTHN, 1, 0},
                {SCI_STYLESETSIZE, STYLE_DEFAULT, 10}, {SCI_SETTABWIDTH, 4, 0}, {SCI_SETTABINDENTS, 0, 0},
                {SCI_SETBACKSPACEUNINDENTS, 0, 0}, {SCI_ASSIGNCMDKEY, SCK_HOME, SCI_HOME},
                {SCI_ASSIGNCMDKEY, SCK_HOME | SCMOD_SHIFT << 16, SCI_HOMEEXTEND},
                {SCI_ASSIGNCMDKEY, SCK_BACK | SCMOD_SHIFT << 16, SCI_DELETEBACK}})
            SendScintilla(message, first, second);
        SendScintilla(SCI_STYLESETFONT, STYLE_DEFAULT, "Courier New");
        SendScintilla(SCI_STYLECLEARALL);
    }

    /// A stroke of another kind, or with the caret elsewhere, ends the step of undo.
    void beginStroke(const std::string &kind)
    {
        if (kind == m_stroke && kind.back() != '\n')
            return;
        endStep();
        m_stroke = kind;
        m_open = true;
        SendScintilla(SCI_BEGINUNDOACTION);
    }
    void endStep()
    {
        m_stroke.clear();
        if (std::exchange(m_open, false))
            SendScintilla(SCI_ENDUNDOACTION);
    }

private:
    std::string m_stroke;
    bool m_open = false;
};

struct Seen {
    std::string text;
    long anchor = 0;
    long caret = 0;
    long firstLine = 0;
    long scrolled = 0;

    friend bool operator==(const Seen &, const Seen &) = default;
};

Seen seenIn(Sci &control)
{
    std::string text(static_cast<std::size_t>(control.SendScintilla(Sci::SCI_GETLENGTH)), '\0');
    control.SendScintilla(Sci::SCI_GETTEXT, static_cast<unsigned long>(text.size() + 1), text.data());
    return {text, control.SendScintilla(Sci::SCI_GETANCHOR), control.SendScintilla(Sci::SCI_GETCURRENTPOS),
        control.SendScintilla(Sci::SCI_GETFIRSTVISIBLELINE), control.SendScintilla(Sci::SCI_GETXOFFSET)};
}

std::ostream &operator<<(std::ostream &out, const Seen &seen)
{
    return out << "anchor " << seen.anchor << " caret " << seen.caret << " first line " << seen.firstLine
               << " scrolled " << seen.scrolled << " of " << seen.text.size() << " bytes, around the caret: "
               << seen.text.substr(static_cast<std::size_t>(std::max(seen.caret - 20, 0L)), 40);
}

enum class Content { Page, Script, Plain };

class Walk {
public:
    Walk(Content content, unsigned seed)
        : m_content(content)
        , m_random(seed)
        , m_typing({m_control, m_state}, m_view, [](TextRange) {})
    {
        m_state.scriptTools = content == Content::Script;
        m_state.colourApplies = content != Content::Plain;
        m_control.setTypingHandler(&m_typing);
        m_control.setKeepIndentation(content == Content::Script);
        for (Sci *control : {static_cast<Sci *>(&m_control), static_cast<Sci *>(&m_bare)}) {
            control->setFrameShape(QFrame::NoFrame);
            control->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
            control->resize(300, 200);
            control->show();
        }
        load();
    }

    void step()
    {
        if (m_control.TextLength() > 6000)
            load();
        const auto choice = below(10);
        choice < 3 ? type() : choice < 5 ? move() : choice < 6 ? remove() : choice < 8 ? command() : point();
    }

    Seen ours() { return seenIn(m_control); }
    Seen theirs() { return seenIn(m_bare); }
    std::string done;
    QString ourClipboard;
    QString theirClipboard;

private:
    static constexpr std::array lines{"<p class=\"x\">caf\u00e9 <b>bold</b>\ttext</p>\r\n",
        "If a = \"then\" Then MsgBox 5 '-- note\r\n", "    Dim x, <<name>> : \u20ac one two   three\r\n",
        "\r\n",
        "a long line, a long line, a long line, a long line, a long line, a long line, to its end\r\n"};

    void load()
    {
        std::string text;
        for (int i = 0; i < 40; ++i)
            text += lines[below(lines.size())];
        m_control.LoadText(text);
        m_bare.endStep();
        m_bare.SendScintilla(Sci::SCI_SETTEXT, 0UL, text.c_str());
        m_bare.SendScintilla(Sci::SCI_EMPTYUNDOBUFFER);
        m_bare.SendScintilla(Sci::SCI_GOTOPOS, 0UL);
        done = "load";
    }

    std::size_t below(std::size_t limit) { return m_random() % limit; }
    template <typename Values> auto any(const Values &values) { return values[below(std::size(values))]; }

    template <typename Action> void both(const Action &action)
    {
        // They share the clipboard, and each finds what was there before.
        auto *clipboard = QGuiApplication::clipboard();
        const auto held = clipboard->text();
        action(m_bare);
        theirClipboard = clipboard->text().remove('\r');
        if (theirClipboard != held)
            clipboard->setText(held);
        action(m_control);
        ourClipboard = clipboard->text();
    }
    /// What puts the caret elsewhere ends a step of undo; what leaves it there does not.
    template <typename Action> void jump(const Action &action)
    {
        const auto before = theirs();
        action();
        if (theirs() != before)
            m_bare.endStep();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        done = QKeySequence(key | modifiers).toString().toStdString();
        both([&](Sci &control) { QTest::keyClick(&control, key, modifiers); });
    }

    void type()
    {
        constexpr std::array characters{"a", "b", "<", ">", " ", "\"", "'", "e", "\u00e9", "\u20ac", "."};
        const auto count = 1 + below(4);
        for (std::size_t i = 0; i < count; ++i) {
            const auto text = QString::fromUtf8(any(characters));
            m_bare.beginStroke(text == " " ? "typed space" : "typed word");
            done = "type " + text.toStdString();
            both([&](Sci &control) {
                QTest::sendKeyEvent(QTest::Click, &control, Qt::Key_unknown, text, Qt::NoModifier);
            });
        }
        if (below(4) > 0)
            return;
        const bool tab = below(3) == 0;
        const auto seen = theirs();
        const auto start = static_cast<std::size_t>(std::min(seen.anchor, seen.caret));
        const auto end = static_cast<std::size_t>(std::max(seen.anchor, seen.caret));
        const bool indents = tab && seen.text.substr(start, end - start).find('\n') != std::string::npos;
        m_bare.beginStroke(indents ? "command" : tab ? "typed space" : "typed \n");
        press(tab ? Qt::Key_Tab : Qt::Key_Return, Qt::NoModifier);
        if (indents)
            m_bare.endStep();
        if (!tab && m_content == Content::Script)
            m_bare.SendScintilla(Sci::SCI_REPLACESEL, 0UL, blanksBefore(seen).c_str());
    }

    /// The blanks that begin the caret's line, before the caret.
    static std::string blanksBefore(const Seen &seen)
    {
        const auto place = static_cast<std::size_t>(std::min(seen.anchor, seen.caret));
        const auto line = seen.text.substr(0, place).substr(seen.text.substr(0, place).rfind('\n') + 1);
        return line.substr(0, std::min(line.find_first_not_of(" \t"), line.size()));
    }

    void move()
    {
        constexpr std::array keys{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home,
            Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown};
        const auto key = any(keys);
        const bool control = key != Qt::Key_PageUp && key != Qt::Key_PageDown && below(3) == 0;
        const bool scrolls = control && (key == Qt::Key_Up || key == Qt::Key_Down);
        const Qt::KeyboardModifiers modifiers = control ? Qt::ControlModifier : Qt::NoModifier;
        for (auto count = 1 + below(4); count > 0; --count)
            jump([&] {
                press(key, modifiers | (!scrolls && below(2) == 0 ? Qt::ShiftModifier : Qt::NoModifier));
            });
    }

    void remove()
    {
        const bool back = below(2) == 0;
        const auto key = back ? Qt::Key_Backspace : Qt::Key_Delete;
        const auto seen = theirs();
        if (seen.anchor != seen.caret || below(4) == 0) {
            m_bare.endStep();
            m_bare.beginStroke("command");
            press(key, seen.anchor == seen.caret ? Qt::ControlModifier : Qt::NoModifier);
            return m_bare.endStep();
        }
        const auto at = static_cast<std::size_t>(back ? seen.caret - 1 : seen.caret);
        const auto byte = at < seen.text.size() ? seen.text[at] : ' ';
        const char *kind = byte == '\r' || byte == '\n' ? "\n"
            : byte == ' ' || byte == '\t'               ? "space"
                                                        : "word";
        m_bare.beginStroke((QString(back ? "back " : "forward ") + kind).toStdString());
        press(key, Qt::NoModifier);
    }

    void command()
    {
        constexpr std::array keys{Qt::Key_X, Qt::Key_C, Qt::Key_V, Qt::Key_Z, Qt::Key_Z, Qt::Key_Y};
        const auto key = any(keys);
        if (key != Qt::Key_C)
            m_bare.endStep();
        press(key, Qt::ControlModifier);
    }

    /// A place away from the last one, so that clicks on both do not add up.
    QPoint place()
    {
        const auto last = m_place;
        while ((m_place - last).manhattanLength() < 30)
            m_place = {static_cast<int>(below(280)), static_cast<int>(below(190))};
        return m_place;
    }

    void point()
    {
        const auto at = place();
        const Qt::KeyboardModifiers shift = below(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
        const auto clicks = below(4);
        const auto to = place();
        if (clicks == 0)
            m_bare.endStep();
        done = QString("%1 clicks, shift %2").arg(clicks).arg(shift != Qt::NoModifier).toStdString();
        jump([&] {
            both([&](Sci &control) {
                clicks == 0 ? drag(control, at, to, shift) : click(control.viewport(), at, shift, clicks);
            });
        });
    }

    static void click(QWidget *view, QPoint at, Qt::KeyboardModifiers modifiers, std::size_t clicks)
    {
        QTest::mouseClick(view, Qt::LeftButton, modifiers, at);
        if (clicks >= 2)
            QTest::mouseDClick(view, Qt::LeftButton, modifiers, at);
        if (clicks == 3)
            QTest::mouseClick(view, Qt::LeftButton, modifiers, at);
    }

    static void drag(Sci &control, QPoint from, QPoint to, Qt::KeyboardModifiers modifiers)
    {
        // Without a selection, which would be what is dragged.
        QTest::keyClick(&control, Qt::Key_Left);
        QTest::mousePress(control.viewport(), Qt::LeftButton, modifiers, from);
        QTest::mouseMove(control.viewport(), (from + to) / 2);
        QTest::mouseMove(control.viewport(), to);
        QTest::mouseRelease(control.viewport(), Qt::LeftButton, modifiers, to);
    }

    Content m_content;
    std::mt19937 m_random;
    BareControl m_bare;
    EditorControl m_control;
    FakeDocumentState m_state;
    FakeMainView m_view;
    TypingColouring m_typing;
    QPoint m_place{0, 0};
};

int fromEnvironment(const char *name, int otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(name, &given);
    return given ? value : otherwise;
}

class KeyWalk : public testing::TestWithParam<Content> { };

TEST_P(KeyWalk, LeavesWhatTheBareControlLeaves)
{
    QLoggingCategory::setFilterRules("default.warning=false"); // this platform cannot hold the mouse
    QGuiApplication::clipboard()->setText("pasted");
    const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    QApplication::setDoubleClickInterval(1'000'000);
    const int steps = fromEnvironment("KEVRA_WALK_STEPS", 400);
    Walk walk(GetParam(), static_cast<unsigned>(fromEnvironment("KEVRA_WALK_SEED", 1)));
    for (int i = 1; i <= steps; ++i) {
        walk.step();
        ASSERT_EQ(walk.ours(), walk.theirs()) << "step " << i << ": " << walk.done;
        ASSERT_EQ(walk.ourClipboard, walk.theirClipboard) << "step " << i << ": " << walk.done;
    }
    QApplication::setDoubleClickInterval(interval);
    QLoggingCategory::setFilterRules({});
}

std::string nameOf(const testing::TestParamInfo<Content> &content)
{
    constexpr std::array names{"Page", "Script", "Plain"};
    return names[static_cast<std::size_t>(content.param)];
}

INSTANTIATE_TEST_SUITE_P(
    In, KeyWalk, testing::Values(Content::Page, Content::Script, Content::Plain), nameOf);

} // namespace
} // namespace kevra
