// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/whole_picture.h"

#include <cstdlib>
#include <iterator>

namespace kevra {
namespace {

constexpr unsigned char startOfScan = 0xDA;
constexpr unsigned char endOfImage = 0xD9;

unsigned char byteAt(std::string_view bytes, std::size_t at)
{
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

std::uint32_t littleEndian(std::string_view bytes, std::size_t at, int count)
{
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | byteAt(bytes, at + static_cast<std::size_t>(i));
    return value;
}

/// Within a scan, 0xFF is followed by 0 if it is data, or by D0 to D7 if it is a restart.
bool belongsToScan(unsigned char marker)
{
    return marker == 0 || (marker >= 0xD0 && marker <= 0xD7);
}

/// The position after the next marker from `at`; beyond the end if there is none.
std::size_t afterMarker(std::string_view bytes, std::size_t at)
{
    for (; at + 1 < bytes.size(); ++at)
        if (byteAt(bytes, at) == 0xFF && byteAt(bytes, at + 1) != 0xFF
            && !belongsToScan(byteAt(bytes, at + 1)))
            return at + 2;
    return bytes.size() + 1;
}

} // namespace

bool isWholeJpeg(std::string_view bytes)
{
    constexpr std::size_t afterStartOfImage = 2;
    bool scanned = false;
    for (auto at = afterMarker(bytes, afterStartOfImage); at <= bytes.size(); at = afterMarker(bytes, at)) {
        const auto marker = byteAt(bytes, at - 1);
        if (marker == endOfImage)
            return scanned;
        scanned |= marker == startOfScan;
        at += static_cast<std::size_t>(byteAt(bytes, at)) << 8 | byteAt(bytes, at + 1);
    }
    return false;
}

bool isWholeBmp(std::string_view header, std::int64_t fileBytes)
{
    constexpr std::uint32_t bitFields = 3;
    const auto compression = littleEndian(header, 30, 4);
    const bool old = littleEndian(header, 14, 4) == 12; // this header has no compression field
    if (old || (compression != 0 && compression != bitFields))
        return true;
    const auto width = std::int64_t{static_cast<std::int32_t>(littleEndian(header, 18, 4))};
    const auto height = std::abs(std::int64_t{static_cast<std::int32_t>(littleEndian(header, 22, 4))});
    const auto rowBytes = (width * littleEndian(header, 28, 2) + 31) / 32 * 4;
    return fileBytes >= littleEndian(header, 10, 4) + rowBytes * height;
}

} // namespace kevra
