// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/ini_text.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(IniText, GivesEveryValueBack)
{
    const IniValues values{{"above", "no section"}, {"settings/empty", ""}, {"settings/comma", "a, b; c=d#"},
        {"settings/blanks", " two "}, {"settings/path", R"(C:\new\x41 "q")"},
        {"settings/quotes", R"("quoted")"}, {"settings/lines", "a\r\nb\t\x01\x7f"},
        {"windows/utf8", "na\xC3\xAFve"}, {"windows/sign", "@Size(1 2)"}};
    const auto again = readIni(iniText(values));
    EXPECT_TRUE(again.complete);
    EXPECT_EQ(again.values, values);
}

TEST(IniText, ReadsHandWrittenFilesAndReportsWhatItCannotRead)
{
    struct {
        const char *name;
        std::string_view text;
        IniValues values;
        bool complete = true;
    } const cases[] = {
        {"nothing", "", {}},
        {"another editor's line ends, mark and blanks", "\xEF\xBB\xBF; mine\r\n[settings]\r\n if1 = no \r\n",
            {{"settings/if1", "no"}}},
        {"a path as it is", "[settings]\ntempfol=C:\\Docs\\\nlast=D:\\x4",
            {{"settings/tempfol", "C:\\Docs\\"}, {"settings/last", "D:\\x4"}}},
        {"a lone quotation mark", "a=\"", {{"a", "\""}}},
        {"a section cut off", "[settings\nif1=no\n", {{"if1", "no"}}, false},
        {"no key", "[settings]\n=no\nif1\nifif=no", {{"settings/ifif", "no"}}, false},
        {"zeros after a power cut", std::string_view("\0\0\0\0", 4), {}, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const auto file = readIni(c.text);
        EXPECT_EQ(file.values, c.values);
        EXPECT_EQ(file.complete, c.complete);
    }
}

} // namespace
} // namespace kevra
