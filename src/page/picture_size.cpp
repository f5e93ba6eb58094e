// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_files.h"

#include <array>

namespace kevra::page {
namespace {

using namespace std::string_view_literals;

enum class Order { BigEndian, LittleEndian };

/// 0 where the text is too short.
[[nodiscard]] long number(std::string_view bytes, std::size_t at, std::size_t length, Order order)
{
    if (bytes.size() < at + length)
        return 0;
    long value = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const auto next = order == Order::BigEndian ? at + i : at + length - 1 - i;
        value = value << 8 | static_cast<unsigned char>(bytes[next]);
    }
    return value;
}

[[nodiscard]] DisplayedSize sizeAt(std::string_view bytes, std::size_t at, std::size_t length, Order order)
{
    return {number(bytes, at, length, order), number(bytes, at + length, length, order)};
}

[[nodiscard]] DisplayedSize pngSize(std::string_view bytes)
{
    return sizeAt(bytes, 16, 4, Order::BigEndian);
}

[[nodiscard]] DisplayedSize gifSize(std::string_view bytes)
{
    return sizeAt(bytes, 6, 2, Order::LittleEndian);
}

[[nodiscard]] DisplayedSize bmpSize(std::string_view bytes)
{
    return sizeAt(bytes, 18, 4, Order::LittleEndian);
}

/// From segment to segment up to the one with the frame.
[[nodiscard]] DisplayedSize jpegSize(std::string_view bytes)
{
    for (std::size_t at = 2; at + 9 < bytes.size() && bytes[at] == '\xFF';) {
        const auto kind = static_cast<unsigned char>(bytes[at + 1]);
        const bool isTable = kind == 0xC4 || kind == 0xC8 || kind == 0xCC;
        if (kind >= 0xC0 && kind <= 0xCF && !isTable)
            return {number(bytes, at + 7, 2, Order::BigEndian), number(bytes, at + 5, 2, Order::BigEndian)};
        // May say that the picture lies on its side.
        if (kind == 0xE1 && bytes.substr(at + 4, 4) == "Exif")
            return {};
        at += 2 + static_cast<std::size_t>(number(bytes, at + 2, 2, Order::BigEndian));
    }
    return {};
}

struct Format {
    std::string_view start;
    DisplayedSize (*size)(std::string_view);
};

constexpr std::array formats{Format{"\x89PNG\r\n\x1A\n"sv, pngSize}, Format{"GIF8"sv, gifSize},
    Format{"\xFF\xD8"sv, jpegSize}, Format{"BM"sv, bmpSize}};

} // namespace

std::optional<DisplayedSize> sizeInHeader(std::string_view head)
{
    constexpr long largest = 100'000;
    for (const auto &format : formats) {
        if (!head.starts_with(format.start))
            continue;
        const auto size = format.size(head);
        const bool sensible
            = size.width > 0 && size.height > 0 && size.width < largest && size.height < largest;
        return sensible ? std::optional(size) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace kevra::page
