// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/printing_qt.h"

#include "editor/editor_control_qt.h"
#include "fakes/messages.h"

#include <QtPrintSupport/QPrinter>

#include <gtest/gtest.h>

namespace kevra {
namespace {

/// A printed file as a reader of it sees the drawing: PDF streams unpacked.
QByteArray drawing(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const auto bytes = file.readAll();
    QByteArray all;
    for (qsizetype at = bytes.indexOf("\nstream\n"); at >= 0; at = bytes.indexOf("\nstream\n", at + 1)) {
        const auto start = at + 8;
        const auto packed = bytes.mid(start, bytes.indexOf("endstream", start) - start);
        if (packed.startsWith('x'))
            all += qUncompress(QByteArray("\0\1\0\0", 4) + packed); // a guess at the length goes before
    }
    return all + bytes;
}

TEST(Printing, APdfKeepsTheColoursAndBreaksPages)
{
    const QTemporaryDir folder;
    EditorControl document;
    std::string text = "<B>red</B>\r\n";
    for (int line = 0; line < 300; ++line)
        text += "plain\r\n";
    document.LoadText(text);
    const ColourRun run{{0, 3}, Colour{0x0000FF}};
    document.SetColours({0, document.TextLength()}, {&run, 1});
    const auto pagesOf = [&](TextRange range, const char *name, QByteArray &out, int first = 0) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath(name));
        if (first > 0) {
            printer.setPrintRange(QPrinter::PageRange);
            printer.setFromTo(first, first + 1);
        }
        EXPECT_TRUE(PrintingQt(document).print(printer, range));
        out = drawing(folder.filePath(name));
        return out.count("/Type /Page\n");
    };
    QByteArray whole;
    QByteArray selection;
    EXPECT_GT(pagesOf({0, document.TextLength()}, "all.pdf", whole), 3);
    EXPECT_TRUE(whole.contains("1 0 0 scn"));
    EXPECT_EQ(pagesOf({12, 17}, "some.pdf", selection), 1);
    EXPECT_FALSE(selection.contains("1 0 0 scn"));
    EXPECT_EQ(pagesOf({0, document.TextLength()}, "two.pdf", selection, 2), 2);
    EXPECT_FALSE(selection.contains("1 0 0 scn")) << "the first page was not asked for";
}

class NoPrinter : public Printing {
public:
    bool printDocument() override { return false; }
};

TEST(Printing, CancellingSaysSo)
{
    NoPrinter printer;
    FakeMessages messages;
    print(printer, messages);
    EXPECT_EQ(messages.shown,
        (std::vector{Message{"Printing Cancelled", Icon::None, Buttons::Ok, "CANCEL PRINTING"}}));
}

} // namespace
} // namespace kevra
