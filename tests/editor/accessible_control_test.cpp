// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader hears of the document.
#include "editor/accessible_control_qt.h"

#include <gtest/gtest.h>

#include <QTest>

namespace kevra {
namespace {

QStringList heard; // as Qt tells screen readers through a plain function

void hear(QAccessibleEvent *event)
{
    if (event->type() == QAccessible::TextInserted)
        heard += QStringLiteral("+%1 %2").arg(
            QString::number(static_cast<QAccessibleTextInsertEvent *>(event)->changePosition()),
            static_cast<QAccessibleTextInsertEvent *>(event)->textInserted());
    else if (event->type() == QAccessible::TextRemoved)
        heard += QStringLiteral("-%1 %2").arg(
            QString::number(static_cast<QAccessibleTextRemoveEvent *>(event)->changePosition()),
            static_cast<QAccessibleTextRemoveEvent *>(event)->textRemoved());
    else if (event->type() == QAccessible::TextCaretMoved)
        heard += QStringLiteral("caret %1")
                     .arg(static_cast<QAccessibleTextCursorEvent *>(event)->cursorPosition());
}

class ScreenReader : public testing::Test {
protected:
    ScreenReader()
    {
        m_control.setAccessibleName("Document");
        m_control.LoadText("<p>h\xC3\xA9 \xF0\x9F\x98\x80!</p>\r\nTwo words. End\r\n");
        m_interface = QAccessible::queryAccessibleInterface(&m_control);
        QAccessible::setActive(true);
        heard.clear();
    }
    ~ScreenReader() override { QAccessible::setActive(false); }

    EditorControl m_control;
    AccessibilityNotifier m_news{m_control, hear};
    QAccessibleInterface *m_interface = nullptr;
};

TEST_F(ScreenReader, ReadsTheDocumentByCharacters)
{
    auto *text = m_interface->textInterface();
    ASSERT_TRUE(text && m_interface->editableTextInterface());
    EXPECT_EQ(m_interface->text(QAccessible::Name), "Document");
    EXPECT_EQ(m_interface->role(), QAccessible::EditableText);
    const auto whole = QString::fromUtf8("<p>hé 😀!</p>\r\nTwo words. End\r\n");
    EXPECT_EQ(text->characterCount(), whole.size());
    EXPECT_EQ(text->text(0, text->characterCount()), whole);
    for (int from = 0; from < whole.size(); ++from) {
        if (!whole[from].isSurrogate()) {
            EXPECT_EQ(text->text(from, from + 1), whole.mid(from, 1)) << from;
        }
    }

    const struct {
        int offset;
        QAccessible::TextBoundaryType type;
        const char *before;
        const char *at;
        const char *after;
    } cases[] = {
        {4, QAccessible::CharBoundary, "h", "é", " "},
        {6, QAccessible::CharBoundary, " ", "😀", "!"},
        {19, QAccessible::WordBoundary, " ", "words", "."},
        {16, QAccessible::LineBoundary, "<p>hé 😀!</p>\r\n", "Two words. End\r\n", ""},
        {17, QAccessible::SentenceBoundary, "</p>\r\n", "Two words. ", "End\r\n"},
        {0, QAccessible::LineBoundary, "", "<p>hé 😀!</p>\r\n", "Two words. End\r\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.at);
        int start = 0;
        int end = 0;
        EXPECT_EQ(text->textBeforeOffset(c.offset, c.type, &start, &end), QString::fromUtf8(c.before));
        EXPECT_EQ(text->textAtOffset(c.offset, c.type, &start, &end), QString::fromUtf8(c.at));
        EXPECT_EQ(text->text(start, end), QString::fromUtf8(c.at));
        EXPECT_EQ(text->textAfterOffset(c.offset, c.type, &start, &end), QString::fromUtf8(c.after));
    }
}

TEST_F(ScreenReader, HearsWhatIsTypedAndWhereTheCaretIs)
{
    m_control.SetSelStart(11);
    QTest::sendKeyEvent(QTest::Click, &m_control, Qt::Key_unknown, u"\u00E9"_qs, Qt::NoModifier);
    QTest::keyClick(&m_control, Qt::Key_Backspace);
    m_control.Select({0, 3});
    EXPECT_EQ(heard, (QStringList{"caret 8", "+8 \u00E9", "caret 9", "-8 \u00E9", "caret 8", "caret 3"}));
    int start = 0;
    int end = 0;
    m_interface->textInterface()->selection(0, &start, &end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 3);
}

TEST_F(ScreenReader, EditsAndMovesForItsUser)
{
    m_interface->editableTextInterface()->replaceText(6, 8, QString::fromUtf8("ü"));
    EXPECT_EQ(m_control.Text({0, 14}), "<p>h\xC3\xA9 \xC3\xBC!</p>");
    m_interface->textInterface()->setCursorPosition(7);
    EXPECT_EQ(m_control.SelStart(), 9);
    m_control.SetColours({0, 3}, std::vector{ColourRun{{0, 3}, colours::defaultCode}});
    int start = 0;
    int end = 0;
    EXPECT_TRUE(m_interface->textInterface()->attributes(1, &start, &end).startsWith("color:rgb(0,0,255)"));
    EXPECT_EQ(end, 3);
    m_control.setReadOnly(true);
    m_interface->editableTextInterface()->deleteText(0, 3);
    EXPECT_EQ(m_control.Text({0, 3}), "<p>");
    EXPECT_TRUE(m_interface->state().readOnly);
}

} // namespace
} // namespace kevra
