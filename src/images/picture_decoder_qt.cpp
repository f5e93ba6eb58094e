// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/picture_decoder_qt.h"

#include "desktop/text_qt.h"
#include "images/whole_picture.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>

#include <algorithm>
#include <array>

namespace kevra {
namespace {

constexpr qint64 maxPixels = qint64{32} * 1024 * 1024; ///< 128 MB as an image
constexpr qint64 maxJpegBytes = qint64{128} * 1024 * 1024; ///< of a JPEG file, which is read whole

constexpr std::array formats{"gif", "jpeg", "jpg", "bmp", "ico"};

/// The decoders of the other formats refuse truncated files themselves.
bool isWhole(const QString &name, const QByteArray &format)
{
    QFile file(name);
    if (!file.open(QFile::ReadOnly))
        return false;
    if (format == "bmp")
        return isWholeBmp(file.read(bmpHeaderBytes).toStdString(), file.size());
    return !format.startsWith("jp")
        || (file.size() <= maxJpegBytes && isWholeJpeg(file.readAll().toStdString()));
}

bool open(QImageReader &reader, const std::string &path)
{
    const auto name = pathText(path);
    if (!QFileInfo(name).isFile())
        return false;
    // By content: the name of a file must not select another decoder.
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true); // photographs are shown upright, as in browsers
    reader.setFileName(name);
    const auto format = reader.format();
    return std::ranges::any_of(formats, [&](const char *known) { return format == known; })
        && isWhole(name, format);
}

bool isAcceptable(QSize size)
{
    return size.width() > 0 && size.height() > 0 && qint64{size.width()} * size.height() <= maxPixels;
}

std::optional<QImage> read(QImageReader &reader)
{
    // All these formats have the size in the header; without it the file is damaged.
    if (!isAcceptable(reader.size()))
        return std::nullopt;
    auto image = reader.read();
    if (image.isNull() || !isAcceptable(image.size()))
        return std::nullopt;
    return image;
}

/// Null if there is not enough memory.
QImage onWhite(const QImage &image)
{
    QImage shown(image.size(), QImage::Format_RGB32);
    if (shown.isNull())
        return {};
    shown.fill(Qt::white);
    QPainter(&shown).drawImage(0, 0, image);
    return shown;
}

} // namespace

std::optional<PictureSize> PictureDecoderQt::sizeOf(const std::string &path) const
{
    QImageReader reader;
    if (!open(reader, path) || !isAcceptable(reader.size()))
        return std::nullopt;
    const auto size = reader.size();
    if (reader.transformation() & QImageIOHandler::TransformationRotate90)
        return PictureSize{size.height(), size.width()};
    return PictureSize{size.width(), size.height()};
}

std::optional<QImage> PictureDecoderQt::decode(const std::string &path) const
{
    QImageReader reader;
    if (!open(reader, path))
        return std::nullopt;
    auto image = read(reader);
    if (!image)
        return std::nullopt;
    // An opaque picture needs no second copy, which could double the memory for a very large one.
    auto shown = image->hasAlphaChannel() ? onWhite(*image)
                                          : std::move(*image).convertToFormat(QImage::Format_RGB32);
    return shown.isNull() ? std::nullopt : std::optional(std::move(shown));
}

} // namespace kevra
