// SPDX-License-Identifier: GPL-3.0-or-later
// The encoding and the line ends in the status line of the whole program.
#include "document/encoding_dialog.h"
#include "fakes/program.h"

namespace kevra {
namespace {

TEST(EncodingDialog, FindsSetsByNameLabelAndScript)
{
    struct {
        const char *typed;
        std::optional<Encoding> chosen;
    } const cases[] = {
        {"", Encoding::Utf8},
        {"koi8", Encoding::Koi8R},
        {"SJIS", Encoding::ShiftJis},
        {"hebrew", Encoding::Windows1255},
        {"klingon", std::nullopt},
        {" big5 ", Encoding::Big5},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.typed);
        EncodingDialog dialog("Reopen in Another Encoding", Encoding::Utf8, nullptr);
        dialog.findChild<QLineEdit *>("tencoding")->setText(c.typed);
        EXPECT_EQ(dialog.chosen(), c.chosen);
        EXPECT_EQ(dialog.findChild<QPushButton *>("bok")->isEnabled(), c.chosen.has_value());
    }
}

class EncodingInProgram : public ProgramTest {
protected:
    template <typename T> T &find(const char *name) { return ProgramTest::find<T>(app().mainWindow(), name); }
    void trigger(const char *action) { find<QAction>(action).trigger(); }
    void choose(const char *action, const char *filter)
    {
        const WhenModal<QDialog> dialog([&](QDialog &open) {
            open.findChild<QLineEdit *>("tencoding")->setText(filter);
            open.accept();
        });
        trigger(action);
        EXPECT_TRUE(dialog.came());
    }
    QString notice()
    {
        app().mainWindow().refreshDocumentStatus();
        return find<QLabel>("tnotice").toolTip();
    }
    std::string content(const char *name) { return app().files.read(path(name)).value_or("(missing)"); }
};

TEST_F(EncodingInProgram, ReportsAnUnencodableCharacterAndChangesTheDeclaration)
{
    put("p.htm", "<meta charset=koi8-r>\xF0\n");
    start("p.htm");
    EXPECT_EQ(find<QToolButton>("bencoding").text(), "KOI8-R");
    EXPECT_EQ(find<QToolButton>("blineends").text(), "LF");
    document().replaceAsUser({0, 0}, "→");
    EXPECT_TRUE(notice().contains("not in KOI8-R")) << notice().toStdString();
    find<QToolButton>("bdeclare").click();
    EXPECT_EQ(document().Text(), "→<meta charset=utf-8>П\r\n");
    EXPECT_EQ(notice(), "");
    document().undo();
    EXPECT_EQ(document().Text(), "→<meta charset=koi8-r>П\r\n");
    document().undo();
    EXPECT_EQ(notice(), "");
    trigger("mcr");
    app().commands.run("msaveplain");
    EXPECT_EQ(content("p.htm"), "<meta charset=koi8-r>\xF0\r");
}

TEST_F(EncodingInProgram, AFileReadWronglyIsReadAgain)
{
    put("s.vbs", "' \xCF\xF0\xE8\r\n");
    start("s.vbs");
    EXPECT_EQ(document().Text(), "' Ïðè\r\n");
    choose("mreopenas", "1251");
    EXPECT_EQ(document().Text(), "' При\r\n");
    choose("msaveencoding", "utf-8");
    trigger("mmark");
    EXPECT_EQ(find<QLabel>("tstatus").text(), "not saved");
    app().commands.run("msaveplain");
    EXPECT_EQ(content("s.vbs"), "\xEF\xBB\xBF' При\r\n");
    EXPECT_EQ(find<QLabel>("tstatus").text(), "saved");
}

} // namespace
} // namespace kevra
