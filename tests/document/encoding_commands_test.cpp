// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/encoding_commands.h"
#include "fakes/document_fixture.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

class EncodingCommandsTest : public ::testing::Test {
protected:
    void open(const std::string &path, const std::string &bytes)
    {
        fixture.files.files[path] = bytes;
        fixture.state.currentPath = path;
        ASSERT_TRUE(opening.loadAccepted(path));
        encoding.documentReplaced();
        std::ignore = encoding.status();
    }
    void type(Offset position, const std::string &text)
    {
        fixture.document.Replace({position, position}, text);
        encoding.textChanged(position, 0, std::ssize(text));
    }
    void erase(Offset position, Offset length)
    {
        fixture.document.Replace({position, position + length}, "");
        encoding.textChanged(position, length, 0);
    }
    std::string save()
    {
        saving.save();
        return fixture.files.files[fixture.state.currentPath];
    }
    [[nodiscard]] std::string text() { return std::string(fixture.document.Text()); }

    DocumentFixture fixture;
    SaveCommands saving{fixture.ports()};
    DocumentColouring colouring{{fixture.document, fixture.state}};
    OpenCommands opening{fixture.ports(), saving, colouring};
    EncodingCommands encoding{fixture.ports(), opening,
        [this](TextRange range, std::string_view text) { fixture.document.Replace(range, text); }};
};

TEST_F(EncodingCommandsTest, SayWhatASaveWillDo)
{
    struct {
        const char *name;
        const char *path;
        const char *bytes;
        const char *typed;
        const char *notice;
        const char *offer;
        const char *written;
    } const cases[] = {
        {"fits", "/a.htm", "<meta charset=windows-1251>", "ж", "", "", "\xE6<meta charset=windows-1251>"},
        {"a page", "/a.htm", "<p>", "→",
            "\u201C→\u201D (U+2192) is not in Windows-1252: saving makes the file UTF-8", "", "→<p>"},
        {"a page that declares another set", "/a.htm", "<meta charset=windows-1251>", "ê",
            "\u201Cê\u201D (U+00EA) is not in Windows-1251: saving makes the file UTF-8 with mark",
            "Declare UTF-8", "\xEF\xBB\xBFê<meta charset=windows-1251>"},
        {"a script", "/a.vbs", "", "→",
            "\u201C→\u201D (U+2192) is not in Windows-1252: saving makes the file UTF-16", "",
            "\xFF\xFE\x92\x21"},
        {"an invisible character", "/a.htm", "<meta charset=koi8-r>", "\u2003",
            "U+2003 is not in KOI8-R: saving makes the file UTF-8 with mark", "Declare UTF-8",
            "\xEF\xBB\xBF\u2003<meta charset=koi8-r>"},
        {"a declaration that is not true", "/a.htm", "<meta charset=koi8-r>\xEF\xBB\xBF\xC3\xA9\x98", "", "",
            "", "<meta charset=koi8-r>\xEF\xBB\xBF\xC3\xA9\x98"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        open(c.path, c.bytes);
        type(0, c.typed);
        const auto status = encoding.status();
        EXPECT_EQ(status.notice, c.notice);
        EXPECT_EQ(status.offer, c.offer);
        EXPECT_EQ(save(), c.written);
    }
}

TEST_F(EncodingCommandsTest, TheNoticeGoesWithItsCharacter)
{
    open("/a.txt", "one");
    type(3, "→");
    type(0, "two ");
    type(4, "←");
    erase(7 + 3, 3);
    EXPECT_TRUE(encoding.status().notice.find("←") != std::string::npos) << encoding.status().notice;
    erase(4, 3);
    EXPECT_EQ(encoding.status().notice, "");
}

TEST_F(EncodingCommandsTest, TheDeclarationFollowsOnDemand)
{
    open("/a.htm",
        "<%@ codepage=1251 %><META http-equiv=Content-Type content='text/html; charset=windows-1251'>");
    type(0, "ê");
    encoding.declareEncoding();
    EXPECT_EQ(
        text(), "ê<%@ codepage=65001 %><META http-equiv=Content-Type content='text/html; charset=utf-8'>");
    EXPECT_EQ(encoding.status().notice, "");
    EXPECT_EQ(save(), text());
}

TEST_F(EncodingCommandsTest, SaveAsConvertsAtTheNextSave)
{
    open("/a.txt", "\xCF\xF0\xE8\xE2\xE5\xF2\n");
    encoding.reopenAs(Encoding::Windows1251);
    EXPECT_EQ(text(), "Привет\r\n");
    encoding.saveAs(Encoding::Koi8R);
    encoding.setLineEnds(LineEnds::Cr);
    EXPECT_FALSE(fixture.file.holds(text()));
    EXPECT_EQ(save(), "\xF0\xD2\xC9\xD7\xC5\xD4\r");
    encoding.saveAs(Encoding::Utf8);
    encoding.setMark(true);
    EXPECT_EQ(save(), "\xEF\xBB\xBFПривет\r");
    encoding.saveAs(Encoding::Utf16Be);
    EXPECT_EQ(save().substr(0, 4), "\xFE\xFF\x04\x1F");
    encoding.saveAs(Encoding::Iso8859_7);
    EXPECT_EQ(
        encoding.status().notice, "\u201CП\u201D (U+041F) is not in ISO-8859-7: saving makes the file UTF-8");
}

TEST_F(EncodingCommandsTest, ReopeningAsksBeforeChangesAreLost)
{
    open("/a.txt", "\xE6");
    type(0, "x");
    fixture.messages.answers = {Answer::No};
    encoding.reopenAs(Encoding::Windows1251);
    EXPECT_EQ(text(), "xæ");
    fixture.messages.answers = {Answer::Yes};
    encoding.reopenAs(Encoding::Windows1251);
    EXPECT_EQ(text(), "ж");
    EXPECT_EQ(fixture.keeper.calls.back(), "given up");
    encoding.reopenAs(Encoding::Koi8R);
    EXPECT_EQ(text(), "Ф");
}

} // namespace
} // namespace kevra
