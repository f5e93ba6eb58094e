// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/image_viewer_window.h"
#include "images/picture_decoder_qt.h"

#include <gtest/gtest.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

namespace kevra {
namespace {

/// The bytes of a picture file that hardly compresses.
QByteArray picture(const char *format, int width = 64, int height = 64)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int i = 0; i < width * height; ++i)
        image.setPixel(i % width, i / width, static_cast<uint>(i) * 2654435761U);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, format)) << format;
    return bytes;
}

class PictureDecoder : public testing::Test {
protected:
    std::string put(const char *name, const QByteArray &bytes)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName().toStdString();
    }

    QTemporaryDir folder;
    PictureDecoderQt decoder;
};

TEST_F(PictureDecoder, RefusesWhatIsNoPictureOrTooLarge)
{
    auto turned = picture("jpg", 30, 20);
    turned.insert(
        2, QByteArray::fromHex("ffe1002245786966000049492a0008000000010012010300010000000600000000000000"));
    auto enormous = picture("bmp", 30, 20);
    qToLittleEndian<qint32>(30000, enormous.data() + 18);
    qToLittleEndian<qint32>(30000, enormous.data() + 22);
    QDir(folder.path()).mkdir("folder.gif");
    const struct {
        std::string path;
        std::optional<PictureSize> size;
    } cases[] = {
        {put("good.bmp", picture("bmp", 30, 20)), PictureSize{30, 20}},
        {put("good.jpg", picture("jpg", 30, 20)), PictureSize{30, 20}},
        {put("turned.jpg", turned), PictureSize{20, 30}},
        {put("named.jpg", picture("png")), {}},
        {put("empty.gif", {}), {}},
        {put("enormous.bmp", enormous), {}},
        {folder.filePath("folder.gif").toStdString(), {}},
        {folder.filePath("missing.gif").toStdString(), {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(decoder.sizeOf(c.path), c.size);
        const auto expected = c.size ? QSize(c.size->width, c.size->height) : QSize(0, 0);
        EXPECT_EQ(decoder.decode(c.path).value_or(QImage()).size(), expected);
    }
}

TEST_F(PictureDecoder, RefusesWhatIsCutOff)
{
    // 2 by 2 pixels, alternately black and white.
    const auto gif
        = QByteArray::fromHex("47494638396102000200800000000000ffffff2c00000000020002000002030c1005003b");
    for (const auto &[name, bytes] : {std::pair("a.gif", gif), std::pair("a.jpg", picture("jpg")),
             std::pair("a.ico", picture("ico")), std::pair("a.bmp", picture("bmp"))}) {
        EXPECT_TRUE(decoder.decode(put(name, bytes))) << name;
        for (const int quarters : {1, 2, 3})
            EXPECT_FALSE(decoder.decode(put(name, bytes.left(bytes.size() * quarters / 4))))
                << name << quarters;
    }
}

TEST(ImageViewerWindow, ShowsAPictureUnscaledAndReportsClicksInItsPixels)
{
    ImageViewerWindow viewer;
    viewer.picture().setPicture(QImage(5000, 60, QImage::Format_RGB32));
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
