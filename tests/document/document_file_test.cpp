// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/document_file.h"

#include "fakes/document_fixture.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(DocumentFile, EncodesTheSameWithAndWithoutTheStoredBytes)
{
    const std::string page = "<p>\r\nplain\r\n</p>";
    const std::string edits[] = {page, page + "more\r\n", "caf\xC3\xA9\r\n" + page, page + "\xE2\x86\x92",
        "<meta charset=\"utf-8\">" + page + "\xC3\xA9", "one line", ""};
    const std::string files[] = {page, "<p>\nplain\n</p>", "<p>\r\nplain\n</p>", "<p>\r\ncaf\xE9\r\n</p>",
        "<meta charset=\"windows-1252\">\r\nplain", "\xEF\xBB\xBF<p>\r\n", "a\rb\r\n", "no break", ""};
    for (const auto &bytes : files) {
        for (const auto &text : edits) {
            SCOPED_TRACE(testing::PrintToString(bytes) + " becomes " + testing::PrintToString(text));
            FakeFileStore store;
            FakeBackupStore backups;
            store.files["/p.htm"] = bytes;
            DocumentFile document(store, backups);
            auto opened = document.read("/p.htm");
            ASSERT_TRUE(opened);
            const auto unedited = opened->decoded.text;
            const auto format = opened->decoded.format;
            document.take(std::move(*opened));
            EXPECT_EQ(document.encoded(unedited, "/p.htm", false).bytes, bytes);
            EXPECT_EQ(document.encoded(text, "/p.htm", false).bytes,
                encodeFile(text, format, bytes, TextKind::Page).bytes);
        }
    }
}

} // namespace
} // namespace kevra
