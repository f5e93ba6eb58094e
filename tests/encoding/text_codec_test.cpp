// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/line_ends.h"
#include "encoding/text_codec.h"
#include "encoding/transcoding.h"

#include <gtest/gtest.h>

#include <random>

using namespace std::string_literals;

namespace kevra {
namespace {

/// Decodes a file, replaces `from` with `to` once, and encodes the text again.
std::string saved(
    const std::string &bytes, TextKind kind, const std::string &from = {}, const std::string &to = {})
{
    auto file = decodeFile(bytes, kind);
    if (const auto at = file.text.find(from); !from.empty() && at != std::string::npos)
        file.text.replace(at, from.size(), to);
    return encodeFile(file.text, file.format, bytes, kind).bytes;
}

TEST(TextCodec, ReadsByMarkThenDeclarationThenUtf8ThenWindows1252)
{
    const auto farDown = std::string(4096, ' ').append("<meta charset=utf-8>");
    struct {
        const char *name;
        TextKind kind;
        std::string bytes;
        std::string text;
        const char *format;
    } const cases[] = {
        {"plain ASCII is Windows-1252", TextKind::Plain, "abc", "abc", "Windows-1252"},
        {"valid UTF-8", TextKind::Plain, "caf\xC3\xA9", "café", "UTF-8"},
        {"a single byte", TextKind::Plain, "caf\xE9 \x80\x81", "café €\xC2\x81", "Windows-1252"},
        {"overlong form", TextKind::Plain, "\xC0\xAF", "À¯", "Windows-1252"},
        {"UTF-8 surrogate", TextKind::Plain, "\xED\xA0\x80", "í\xC2\xA0€", "Windows-1252"},
        {"UTF-8 mark", TextKind::Script, "\xEF\xBB\xBFok", "ok", "UTF-8 with mark"},
        {"UTF-8 mark, broken", TextKind::Plain, "\xEF\xBB\xBF\xE9", "ï»¿é", "Windows-1252"},
        {"UTF-16", TextKind::Script,
            "\xFF\xFE"
            "a\0\x3D\xD8\x00\xDE"s,
            "a😀", "UTF-16"},
        {"UTF-16 big-endian", TextKind::Script, "\xFE\xFF\0a"s, "a", "UTF-16 big-endian"},
        {"UTF-16, half a pair", TextKind::Script, "\xFF\xFE\x3D\xD8"s, "ÿþ=Ø", "Windows-1252"},
        {"declared Latin-9", TextKind::Page, "<meta charset=ISO-8859-15>\xA4", "<meta charset=ISO-8859-15>€",
            "ISO-8859-15"},
        {"declared, but no page", TextKind::Plain, "<meta charset=ISO-8859-15>\xA4",
            "<meta charset=ISO-8859-15>¤", "Windows-1252"},
        {"declared UTF-8, plain ASCII", TextKind::Page,
            "<META http-equiv=Content-Type content=\"text/html; charset=utf-8\">",
            "<META http-equiv=Content-Type content=\"text/html; charset=utf-8\">", "UTF-8"},
        {"declared UTF-8, not valid there", TextKind::Page, "<meta charset='utf-8'>\xE9",
            "<meta charset='utf-8'>é", "Windows-1252"},
        {"declared in a comment", TextKind::Page, "<!--<meta charset=utf-8>-->",
            "<!--<meta charset=utf-8>-->", "Windows-1252"},
        {"ASP code page", TextKind::Page, "<%@ Language=VBScript CodePage=28591 %>\xA4",
            "<%@ Language=VBScript CodePage=28591 %>¤", "Windows-1252"},
        {"declared Windows-1251", TextKind::Page, "<meta charset=windows-1251>\xEF\xF0\xE8",
            "<meta charset=windows-1251>при", "Windows-1251"},
        {"declared EUC-KR, not valid there", TextKind::Page, "<meta charset=euc-kr>\xC7\xD1\xFF",
            "<meta charset=euc-kr>ÇÑÿ", "Windows-1252"},
        {"Belarusian in KOI8-U", TextKind::Page, "<meta charset=koi8-u>\xAE", "<meta charset=koi8-u>ў",
            "KOI8-U"},
        {"a euro in Mac Cyrillic", TextKind::Page, "<meta charset=x-mac-cyrillic>\xFF",
            "<meta charset=x-mac-cyrillic>€", "Mac Cyrillic"},
        {"a name with the tall Taka in EUC-JP", TextKind::Page, "<meta charset=euc-jp>\xFC\xE2\xB6\xB6",
            "<meta charset=euc-jp>髙橋", "EUC-JP"},
        {"XML declaration", TextKind::Script, "<?xml version=\"1.0\" encoding='koi8-r'?>\xC1",
            "<?xml version=\"1.0\" encoding='koi8-r'?>а", "KOI8-R"},
        {"style sheet", TextKind::Plain, "@charset \"Shift_JIS\";\x83\x41", "@charset \"Shift_JIS\";ア",
            "Shift_JIS"},
        {"UTF-16 can declare nothing in single bytes", TextKind::Page, "<meta charset=utf-16>\xC3\xA9",
            "<meta charset=utf-16>é", "UTF-8"},
        {"UTF-32", TextKind::Plain, "\xFF\xFE\0\0a\0\0\0"s, "a", "UTF-32"},
        {"a Russian script", TextKind::Script,
            "' \xCF\xF0\xEE\xE2\xE5\xF0\xFF\xE5\xEC, \xE5\xF1\xF2\xFC \xEB\xE8 "
            "\xF4\xE0\xE9\xEB \xED\xE0 \xE4\xE8\xF1\xEA\xE5",
            "' Проверяем, есть ли файл на диске", "Windows-1251, guessed"},
        {"ISO-2022-JP, seven bits", TextKind::Script,
            "' \x1B$B$3$N%U%!%$%k$r%G%9%/%H%C%W$K%3%T!<$7$^$9\x1B(B",
            "' このファイルをデスクトップにコピーします", "ISO-2022-JP, guessed"},
        {"French", TextKind::Script, "' d\xE9j\xE0 vu, o\xF9 le c\x9Cur \xE9tait",
            "' déjà vu, où le cœur était", "Windows-1252"},
        {"declared after 4 KB", TextKind::Page, farDown, farDown, "Windows-1252"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
#ifdef _WIN32
        if (std::string_view(c.format).ends_with("guessed"))
            continue; // nothing is guessed there
#endif
        const auto file = decodeFile(c.bytes, c.kind);
        EXPECT_EQ(file.text, c.text);
        EXPECT_EQ(encodingName(file.format), c.format);
        EXPECT_EQ(saved(c.bytes, c.kind), c.bytes);
    }
}

TEST(TextCodec, NeverReplacesWhatTheEncodingCannotHold)
{
    struct {
        const char *name;
        TextKind kind;
        std::string bytes;
        std::string from;
        std::string to;
        std::string written;
    } const cases[] = {
        {"holds it", TextKind::Plain, "x\xE9\n", "x", "€", "\x80\xE9\n"},
        {"text becomes UTF-8", TextKind::Plain, "x\xE9\n", "x", "→", "→é\n"},
        {"script becomes UTF-16", TextKind::Script, "x", "x", "→", "\xFF\xFE\x92\x21"},
        {"UTF-8 script stays", TextKind::Script, "é x", "x", "→", "é →"},
        {"a page that names another set gets a mark", TextKind::Page, "<meta charset=latin1>x", "x", "→",
            "\xEF\xBB\xBF<meta charset=latin1>→"},
        {"a page that now names UTF-8", TextKind::Page, "<meta charset=latin1>\xE9", "latin1", "utf-8",
            "<meta charset=utf-8>é"},
        {"what would read back as something else", TextKind::Plain, "x", "x", "Ã©", "\xC3\x83\xC2\xA9"},
        {"a similar character is no replacement", TextKind::Page, "<meta charset=Shift_JIS>\x83\x41", "ア",
            "¥", "\xEF\xBB\xBF<meta charset=Shift_JIS>¥"},
        {"a character that the library drops", TextKind::Page, "<meta charset=gbk>x", "x", "\xF3\xA0\x81\xA7",
            "\xEF\xBB\xBF<meta charset=gbk>\xF3\xA0\x81\xA7"},
        {"unchanged lines come first", TextKind::Plain, "\xC3\xA9\n\xE9", "Ã©\r\né", "Ã©\r\n", "\xC3\xA9\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(saved(c.bytes, c.kind, c.from, c.to), c.written);
    }
}

TEST(TextCodec, NewTextIsEncodedAsItDeclares)
{
    EXPECT_EQ(encodeFile("é\r\n", {}, "", TextKind::Page).bytes, "\xE9\r\n");
    EXPECT_EQ(encodeFile("<meta charset=utf-8>é", {}, "", TextKind::Page).bytes, "<meta charset=utf-8>é");
    EXPECT_EQ(
        encodeFile("<meta charset=utf-8>é", {}, "", TextKind::Script).bytes, "<meta charset=utf-8>\xE9");
}

TEST(TextCodec, EditedLinesLeaveOtherLineEndsAlone)
{
    struct {
        const char *name;
        std::string bytes;
        std::string from;
        std::string to;
        std::string written;
    } const cases[] = {
        {"a line changed", "a\nb\r\nc\rd", "b", "B", "a\nB\r\nc\rd"},
        {"an inserted line gets the most common end", "a\nb\r\nc\n", "b\r\n", "b\r\nnew\r\n",
            "a\nb\r\nnew\nc\n"},
        {"a line removed", "a\nb\r\nc\rd", "b\r\n", "", "a\nc\rd"},
        {"one kind of end: new lines get it too", "a\nb", "b", "b\r\nc\r\n", "a\nb\nc\n"},
        {"lone CR file", "a\rb", "a", "x", "x\rb"},
        {"no line end so far", "a", "a", "a\r\nb", "a\r\nb"},
        {"equal lines, two changed", "x\nx\r\nx\nx\r\nx\nx\r\n", "x\r\nx\r\nx\r\nx\r\n",
            "y\r\nx\r\nx\r\nz\r\n", "y\nx\r\nx\nz\r\nx\nx\r\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(saved(c.bytes, TextKind::Plain, c.from, c.to), c.written);
    }
}

/// Generates files of many kinds from a fixed seed.
class Generator {
public:
    std::string bytes()
    {
        const int kind = pick(8);
        std::string out = kind == 0 ? "\xEF\xBB\xBF" : kind == 1 ? "\xFF\xFE" : kind == 2 ? "\xFE\xFF" : "";
        for (int left = pick(60); left > 0; --left)
            out += piece(kind);
        return out;
    }
    int pick(int below) { return std::uniform_int_distribution(0, below - 1)(m_random); }

private:
    std::string piece(int kind)
    {
        static const std::string ends[] = {"\n", "\r", "\r\n"};
        static const std::string words[]
            = {"<P>", "é", "€", "😀", "Dim x", "\0"s, "same", "same", "\xEF\xBB\xBF"};
        const int what = pick(10);
        std::string text = what < 5 ? words[pick(9)] : what < 8 ? ends[kind > 4 ? 0 : pick(3)] : "";
        if (what > 7)
            text = static_cast<char>(pick(256));
        const bool wide = (kind == 1 || kind == 2) && pick(40) > 0;
        if (!wide || !isUtf8(text))
            return text;
        return *fromUtf8(text, kind == 1 ? Encoding::Utf16Le : Encoding::Utf16Be);
    }

    std::mt19937 m_random{20261121};
};

/// Bytes of which many are invalid in `encoding`.
std::string bytesFor(Encoding encoding, Generator &generator)
{
    static const std::string pieces[] = {"\n", "\r\n", "a", "\x1B$B", "\x1B(J", "\x8E\xA1", "\x81\x30", "\\"};
    std::string out;
    for (int left = generator.pick(40); left > 0; --left) {
        const int what = generator.pick(24);
        auto piece = what < 8 ? pieces[what] : std::string(1, static_cast<char>(generator.pick(256)));
        out += unitSize(encoding) > 1 && what < 3 ? fromUtf8(piece, encoding).value() : piece;
    }
    return out;
}

TEST(TextCodec, InvalidBytesAreKept)
{
    Generator generator;
    for (const auto &set : characterSets())
        for (int i = 0; i < 60; ++i) {
            const auto bytes = bytesFor(set.encoding, generator);
            SCOPED_TRACE(std::string(set.name) + ' ' + std::to_string(i));
            const auto file = decodeFileAs(bytes, TextKind::Plain, set.encoding);
            ASSERT_TRUE(isUtf8(file.text));
            ASSERT_EQ(encodeFile(file.text, file.format, bytes, TextKind::Plain).bytes, bytes);

            // A line added at the end changes no byte before it, and is read back.
            const auto longer = encodeFile(file.text + "\r\nx", file.format, bytes, TextKind::Plain);
            if (longer.format.encoding == set.encoding) {
                ASSERT_EQ(longer.bytes.substr(0, bytes.size()), bytes);
            }
            ASSERT_EQ(decodeFile(longer.bytes, longer.format), file.text + "\r\nx");
            // Text added to the first line changes no other line.
            const auto edited = encodeFile('x' + file.text, file.format, bytes, TextKind::Plain);
            ASSERT_EQ(decodeFile(edited.bytes, edited.format), 'x' + file.text);
            const auto lineEnd = file.text.find("\r\n");
            if (lineEnd != std::string::npos && set.form != Form::Wide
                && edited.format.encoding == set.encoding) {
                ASSERT_TRUE(edited.bytes.ends_with(bytes.substr(bytes.find_first_of("\r\n"))));
            }
        }
}

TEST(TextCodec, AnEditInOneLineKeepsTheBytesOfAllOthers)
{
    Generator generator;
    for (int i = 0; i < 4000; ++i) {
        const auto bytes = generator.bytes();
        auto file = decodeFile(bytes, TextKind::Plain);
        auto lines = splitLines(file.text);
        const auto edited = static_cast<std::size_t>(generator.pick(static_cast<int>(lines.size())));
        const auto start = static_cast<std::size_t>(lines[edited].content.data() - file.text.data());
        file.text.insert(start, "edit");
        const auto encoded = encodeFile(file.text, file.format, bytes, TextKind::Plain);

        const auto mark = file.format.mark ? markOf(file.format.encoding) : std::string_view();
        const auto original = toUtf8(bytes.substr(mark.size()), file.format.encoding).text;
        std::string expected;
        for (std::size_t n = 0; const auto &line : splitLines(original))
            expected += (n++ == edited ? "edit" : "") + std::string(line.content) + std::string(line.end);
        ASSERT_EQ(encoded.bytes, std::string(mark) + *fromUtf8(expected, file.format.encoding)) << i;
    }
}

TEST(TextCodec, ManyEditsInAHugeMixedFileStayAffordable)
{
    std::string bytes;
    std::string text;
    std::string expected;
    for (int i = 0; i < 60000; ++i) {
        const std::string end = i % 3 ? "\n" : "\r\n";
        const auto line = "line " + std::to_string(i % 30000);
        bytes += line + end;
        // Every fifth line of the first half is removed, the last line is changed.
        if (i < 30000 && i % 5 == 0)
            continue;
        const std::string changed = i == 59999 ? "*" : "";
        text += changed + line + "\r\n";
        expected += changed + line + end;
    }
    const auto file = decodeFile(bytes, TextKind::Plain);
    const auto written = encodeFile(text, file.format, bytes, TextKind::Plain).bytes;
    // The tail is far after the last line removed: it keeps its own line ends.
    EXPECT_EQ(written.substr(written.size() / 2),
        expected.substr(expected.size() - (written.size() - written.size() / 2)));
}

} // namespace
} // namespace kevra
