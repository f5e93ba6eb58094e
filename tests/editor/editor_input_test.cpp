// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does to the control, through real events.
#include "editor/control_layout_qt.h"
#include "editor/editor_control_qt.h"

#include "editor/surface_contract.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>

#include <array>
#include <ranges>

namespace kevra {
namespace {

/// Writes down what it is told, and types what lies within angle brackets in blue.
class Log : public TypingHandler {
public:
    explicit Log(EditorControl &control)
        : m_control(control)
    {
    }

    void keyTyped(char32_t character) override
    {
        lines.push_back("typed " + std::to_string(static_cast<unsigned>(character)) + " at "
            + std::to_string(m_control.SelStart()));
        if (m_closed || character == U'<')
            m_control.SetSelColor(character == U'<' ? blue : colours::black);
        m_closed = character == U'>';
    }
    void keyReleased(int key) override { lines.push_back("key " + std::to_string(key)); }
    void edited(TextRange touched, EditKind kind) override
    {
        lines.push_back("edit " + std::to_string(static_cast<int>(kind)) + " ["
            + std::to_string(touched.start) + "," + std::to_string(touched.end) + ")");
    }
    void caretPlaced() override { lines.push_back("caret"); }

    std::vector<std::string> lines;

private:
    EditorControl &m_control;
    bool m_closed = false;
};

class EditorInput : public testing::Test {
protected:
    EditorInput()
    {
        m_control.resize(400, 300);
        m_control.show();
        m_control.setTypingHandler(&m_log);
        QObject::connect(&m_control, &EditorControl::changed, &m_control,
            [this](Offset position, Offset removed, Offset added, EditKind) {
                m_mirror.replace(static_cast<std::size_t>(position), static_cast<std::size_t>(removed),
                    std::string(m_control.Text({position, position + added})));
            });
    }
    ~EditorInput() override { EXPECT_EQ(m_mirror, m_control.Text()) << "every change has been told"; }

    void load(std::string_view text, Offset caret)
    {
        m_control.LoadText(text);
        m_control.SetSelStart(caret);
        m_log.lines.clear();
    }
    void pasteText(const QString &text)
    {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(&m_control, Qt::Key_V, Qt::ControlModifier);
    }

    std::string m_mirror;
    EditorControl m_control;
    Log m_log{m_control};
};

TEST_F(EditorInput, AsksForTheColourOfEveryCharacterBeforeItStands)
{
    load("ab", 1);
    QTest::keyClicks(&m_control, "<i>x");
    EXPECT_EQ(m_control.Text(), "a<i>xb");
    EXPECT_EQ(painted(m_control), ".bbb..");
    QTest::keyClick(&m_control, Qt::Key_Return);
    EXPECT_EQ(m_control.Text(), "a<i>x\r\nb");
    const std::vector<std::string> expected{"typed 60 at 1", "edit 1 [1,2)", "typed 105 at 2", "edit 1 [2,3)",
        "typed 62 at 3", "edit 1 [3,4)", "typed 120 at 4", "edit 1 [4,5)", "typed 13 at 5", "edit 1 [5,7)",
        "key 13"};
    EXPECT_EQ(m_log.lines, expected);
}

TEST_F(EditorInput, TakesWhatAnInputMethodCommits)
{
    load("ab", 1);
    QInputMethodEvent composing(QString::fromUtf8("né"), {});
    QCoreApplication::sendEvent(&m_control, &composing);
    EXPECT_EQ(m_control.Text(),
        "an\xC3\xA9"
        "b");
    QInputMethodEvent commit;
    commit.setCommitString(QString::fromUtf8("<é😀"));
    QCoreApplication::sendEvent(&m_control, &commit);
    EXPECT_EQ(m_control.Text(),
        "a<\xC3\xA9\xF0\x9F\x98\x80"
        "b");
    EXPECT_EQ(painted(m_control), ".bbbbbbb.");
    EXPECT_TRUE(std::ranges::count(m_log.lines, "typed 60 at 1") == 1
        && std::ranges::count(m_log.lines, "typed 233 at 2") == 1);
    m_control.undo();
    EXPECT_EQ(m_control.Text(), "ab") << "what was only composed is not in the history";
}

TEST_F(EditorInput, PastesPlainTextWithTheDocumentsLineBreaks)
{
    load("<b></b>", 3);
    m_control.SetSelColor(blue);
    pasteText(QStringLiteral("one\ntwo\rthree\r\n") + QChar(0) + QStringLiteral("€"));
    EXPECT_EQ(m_control.Text(), std::string("<b>one\r\ntwo\r\nthree\r\n\0\xE2\x82\xAC</b>", 28));
    EXPECT_EQ(painted(m_control), std::string(28, '.')) << "what is pasted has no colour of its own";
    EXPECT_EQ(m_log.lines, (std::vector<std::string>{"edit 2 [3,24)"}));
    QTest::keyClick(&m_control, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(m_control.Text(), "<b></b>");
    QTest::keyClick(&m_control, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(m_control.TextLength(), 28);
    EXPECT_EQ(m_log.lines.back(), "edit 6 [3,24)");

    m_control.Select({20, 24});
    QTest::keyClick(&m_control, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QChar(0) + QStringLiteral("€"));
    EXPECT_EQ(m_log.lines.back(), "edit 3 [20,20)");
}

TEST_F(EditorInput, DeletesAndMovesByTheUsualKeys)
{
    const struct {
        const char *name;
        std::string_view text;
        Offset caret;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        std::string_view after;
        TextRange selection;
    } cases[] = {
        {"delete a line break", "a\r\nb", 1, Qt::Key_Delete, Qt::NoModifier, "ab", {1, 1}},
        {"backspace over a character of four bytes", "a\xF0\x9F\x98\x80", 5, Qt::Key_Backspace,
            Qt::NoModifier, "a", {1, 1}},
        {"a word backwards", "one two", 7, Qt::Key_Backspace, Qt::ControlModifier, "one ", {4, 4}},
        {"home", "  ab\r\n", 3, Qt::Key_Home, Qt::NoModifier, "  ab\r\n", {0, 0}},
        {"to the end, selecting", "ab\r\ncd", 1, Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier,
            "ab\r\ncd", {1, 6}},
        {"no line is cut", "ab\r\ncd", 1, Qt::Key_L, Qt::ControlModifier, "ab\r\ncd", {1, 1}},
        {"no character from a menu's key", "ab", 1, Qt::Key_F, Qt::AltModifier, "ab", {1, 1}},
        {"insert does not overwrite", "ab", 1, Qt::Key_Insert, Qt::NoModifier, "ab", {1, 1}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        load(c.text, c.caret);
        QTest::keyClick(&m_control, c.key, c.modifiers);
        EXPECT_EQ(m_control.Text(), c.after);
        EXPECT_EQ(m_control.Selection(), c.selection);
    }
    load("abc", 0);
    QTest::keyClick(&m_control, Qt::Key_Right);
    QTest::keyClick(&m_control, Qt::Key_Delete);
    EXPECT_EQ(m_log.lines, (std::vector<std::string>{"caret", "edit 4 [1,1)", "key 46"}));
}

TEST_F(EditorInput, TakesDroppedTextAndLeavesFilesToTheWindow)
{
    load("ab\r\ncd", 0);
    const auto drop = [this](QMimeData &mime) {
        const auto place = ControlLayout(m_control).bottomLeft(1) - QPoint(0, 4);
        QDragEnterEvent enter(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_control.viewport(), &enter);
        QDropEvent event(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_control.viewport(), &event);
        return event.isAccepted();
    };
    QMimeData text;
    text.setText("1\n2");
    EXPECT_TRUE(drop(text));
    EXPECT_EQ(m_control.Text(), "a1\r\n2b\r\ncd");
    EXPECT_EQ(m_log.lines, (std::vector<std::string>{"edit 7 [1,5)"}));
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile("/tmp/page.htm")});
    EXPECT_FALSE(drop(file));
    EXPECT_EQ(m_control.Text(), "a1\r\n2b\r\ncd");
}

TEST_F(EditorInput, KeepsEveryStepOfTheHistory)
{
    load("start", 5);
    std::mt19937 random(7);
    const std::vector<std::string> pieces{"<b>", "\r\n", "\xC3\xA9\xE2\x82\xAC", "x", ""};
    std::vector<std::string> states{std::string(m_control.Text())};
    for (int i = 0; i < 200; ++i) {
        const auto start = static_cast<Offset>(random()) % (m_control.TextLength() + 1);
        m_control.Replace(
            {start, start + static_cast<Offset>(random() % 5)}, pieces[random() % pieces.size()]);
        if (m_control.Text() != states.back())
            states.push_back(std::string(m_control.Text()));
    }
    EXPECT_FALSE(m_control.isAtSavePoint());
    for (auto state = states.rbegin() + 1; state != states.rend(); ++state) {
        m_control.undo();
        ASSERT_EQ(m_control.Text(), *state);
    }
    EXPECT_FALSE(m_control.canUndo());
    EXPECT_TRUE(m_control.isAtSavePoint());
    while (m_control.canRedo())
        m_control.redo();
    EXPECT_EQ(m_control.Text(), states.back());
    m_control.LoadText("new");
    EXPECT_FALSE(m_control.canUndo() || m_control.canRedo());
}

TEST_F(EditorInput, UndoesAWordARunOfSpacesALineOrAPauseAtATime)
{
    load("", 0);
    const auto type = [this](const QString &keys, quint64 time) {
        for (const auto key : keys) {
            const bool isReturn = key == u'\r';
            QKeyEvent press(QEvent::KeyPress, isReturn ? Qt::Key_Return : Qt::Key_unknown, Qt::NoModifier,
                isReturn ? QString() : QString(key));
            press.setTimestamp(time += 100);
            QCoreApplication::sendEvent(&m_control, &press);
        }
    };
    type("If a  Then\r\rx", 5000);
    type("yz", 7300);
    QTest::keyClick(&m_control, Qt::Key_Left);
    type("w", 7600);
    const std::array<std::string_view, 10> states{"", "If", "If ", "If a", "If a  ", "If a  Then",
        "If a  Then\r\n", "If a  Then\r\n\r\n", "If a  Then\r\n\r\nx", "If a  Then\r\n\r\nxyz"};
    for (const auto state : std::views::reverse(states)) {
        m_control.undo();
        EXPECT_EQ(m_control.Text(), state);
    }
    EXPECT_FALSE(m_control.canUndo());
    for (const auto state : states) {
        EXPECT_EQ(m_control.Text(), state);
        m_control.redo();
    }
    EXPECT_EQ(m_control.Text(), "If a  Then\r\n\r\nxywz");
}

TEST_F(EditorInput, TellsWhenCaretViewAndSavePointMove)
{
    std::vector<std::string> heard;
    QObject::connect(&m_control, &EditorControl::caretMoved, &m_control, [&] { heard.push_back("caret"); });
    QObject::connect(&m_control, &EditorControl::firstVisibleLineChanged, &m_control,
        [&](Offset line) { heard.push_back("line " + std::to_string(line)); });
    QObject::connect(&m_control, &EditorControl::savePointChanged, &m_control,
        [&](bool saved) { heard.push_back(saved ? "saved" : "not saved"); });
    load(std::string(400, '\n'), 0);
    heard.clear();
    m_control.verticalScrollBar()->setValue(50);
    QTest::keyClicks(&m_control, "x");
    m_control.setSavePoint();
    m_control.SetFirstVisibleLine(9);
    m_control.undo();
    m_control.undo();
    EXPECT_EQ(heard,
        (std::vector<std::string>{
            "line 50", "caret", "line 0", "not saved", "saved", "line 9", "caret", "line 0", "not saved"}));
}

TEST_F(EditorInput, IsInertWhileHidden)
{
    load("ab", 1);
    {
        const BusySurface busy(m_control);
        QTest::keyClicks(&m_control, "x");
        m_control.SetSelStart(2);
        EXPECT_FALSE(m_control.viewport()->updatesEnabled());
    }
    EXPECT_EQ(m_control.Text(), "ab");
    QTest::keyClicks(&m_control, "x");
    EXPECT_EQ(m_control.Text(), "abx");
}

} // namespace
} // namespace kevra
