// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/image_viewer_window.h"
#include "images/picture_decoder_qt.h"

#include <gtest/gtest.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

namespace kevra {
namespace {

TEST(PictureDecoder, RefusesWhatIsNoPictureOrTooLarge)
{
    QTemporaryDir folder;
    const auto path = [&](const char *name) { return folder.filePath(name).toStdString(); };
    const auto write = [&](const char *name, const QByteArray &bytes) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    };
    QImage picture(30, 20, QImage::Format_RGB32);
    picture.fill(qRgb(255, 128, 0));
    ASSERT_TRUE(picture.save(folder.filePath("good.bmp")));
    ASSERT_TRUE(picture.save(folder.filePath("good.jpg")));
    ASSERT_TRUE(picture.save(folder.filePath("named.jpg"), "png"));
    QFile upright(folder.filePath("good.jpg"));
    ASSERT_TRUE(upright.open(QFile::ReadOnly));
    write("turned.jpg",
        upright.readAll().insert(2,
            QByteArray::fromHex("ffe1002245786966000049492a00080000000100120103000100000006000000"
                                "00000000")));
    QFile whole(folder.filePath("good.bmp"));
    ASSERT_TRUE(whole.open(QFile::ReadOnly));
    auto enormous = whole.readAll();
    write("empty.gif", {});
    qToLittleEndian<qint32>(30000, enormous.data() + 18);
    qToLittleEndian<qint32>(30000, enormous.data() + 22);
    write("enormous.bmp", enormous);
    QDir(folder.path()).mkdir("folder.gif");

    const PictureDecoderQt decoder;
    for (const auto *name : {"good.bmp", "good.jpg"}) {
        EXPECT_EQ(decoder.sizeOf(path(name)), (PictureSize{30, 20})) << name;
        EXPECT_EQ(decoder.decode(path(name)).value_or(QImage()).size(), QSize(30, 20)) << name;
    }
    EXPECT_EQ(decoder.sizeOf(path("turned.jpg")), (PictureSize{20, 30}));
    EXPECT_EQ(decoder.decode(path("turned.jpg")).value_or(QImage()).size(), QSize(20, 30));
    for (const auto *name : {"named.jpg", "empty.gif", "enormous.bmp", "folder.gif", "missing.gif"}) {
        EXPECT_FALSE(decoder.sizeOf(path(name))) << name;
        EXPECT_FALSE(decoder.decode(path(name))) << name;
    }
}

/// Of 2 by 2 pixels, black and white in turns.
const auto tinyGif
    = QByteArray::fromHex("47494638396102000200800000000000ffffff2c00000000020002000002030c1005003b");

TEST(PictureDecoder, RefusesWhatIsCutOff)
{
    QTemporaryDir folder;
    const auto bytesOf = [&](const char *format) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QImage picture(64, 64, QImage::Format_RGB32);
        for (int i = 0; i < 64 * 64; ++i)
            picture.setPixel(i % 64, i / 64, static_cast<uint>(i) * 2654435761U);
        EXPECT_TRUE(picture.save(&buffer, format)) << format;
        return bytes;
    };
    const PictureDecoderQt decoder;
    for (const auto &[name, bytes] : {std::pair("a.gif", tinyGif), std::pair("a.jpg", bytesOf("jpg")),
             std::pair("a.ico", bytesOf("ico")), std::pair("a.bmp", bytesOf("bmp"))}) {
        const auto path = folder.filePath(name);
        const auto decodes = [&, &bytes = bytes](qsizetype length) {
            QFile file(path);
            return file.open(QFile::WriteOnly) && file.write(bytes.left(length)) == length && file.flush()
                && decoder.decode(path.toStdString()).has_value();
        };
        EXPECT_TRUE(decodes(bytes.size())) << name;
        for (const qsizetype length : {bytes.size() / 4, bytes.size() / 2, bytes.size() * 3 / 4})
            EXPECT_FALSE(decodes(length)) << name << " cut to " << length;
    }
}

TEST(ImageViewerWindow, ShowsAPictureUnscaledAndTellsClicksInItsPixels)
{
    ImageViewerWindow viewer;
    QImage picture(5000, 60, QImage::Format_RGB32);
    picture.fill(Qt::red);
    viewer.picture().setPicture(picture);
    viewer.showFor({5000, 60}, {0, 0, 600, 400});
    EXPECT_EQ(viewer.windowTitle(), "VIEW IMAGE - Note: Image has been cropped to fit screen.");
    EXPECT_EQ(viewer.width(), viewer.screen()->size().width() * 9 / 10);
    EXPECT_EQ(viewer.height(), 60);
    EXPECT_EQ(viewer.picture().geometry(), QRect(0, 0, 5000, 60));
    QSignalSpy clicks(&viewer.picture(), &PictureView::clicked);
    QTest::mouseClick(&viewer.picture(), Qt::LeftButton, {}, {17, 42});
    ASSERT_EQ(clicks.size(), 1);
    EXPECT_EQ(clicks[0], (QVariantList{17, 42}));
}

} // namespace
} // namespace kevra
