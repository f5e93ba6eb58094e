// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/recovery_details.h"

#include <algorithm>
#include <array>
#include <ctime>

namespace kevra {
namespace {

constexpr int shownLines = 8;
constexpr std::size_t shownWidth = 100; ///< bytes of a line

std::string timeText(std::int64_t seconds)
{
    const std::time_t time = seconds;
    std::tm local{};
    std::array<char, 32> text{};
    ::localtime_r(&time, &local);
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
    return text.data();
}

std::string summary(const RecoveryRecord &text)
{
    return (text.path.empty() ? "new work" : text.path) + ", " + timeText(text.time) + ", "
        + std::to_string(text.bytes.size()) + " bytes";
}

/// Cut between characters.
std::string_view shortened(std::string_view line)
{
    auto end = std::min(line.size(), shownWidth);
    while (end > 0 && end < line.size() && (static_cast<unsigned char>(line[end]) & 0xC0) == 0x80)
        --end;
    return line.substr(0, end);
}

std::string firstLines(std::string_view text)
{
    std::string lines;
    for (int i = 0; i < shownLines && !text.empty(); ++i) {
        const auto end = text.find("\r\n");
        const auto line = text.substr(0, end);
        lines.append("    ").append(shortened(line)).append(line.size() > shownWidth ? "...\n" : "\n");
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    }
    return lines + (text.empty() ? "" : "    ...\n");
}

} // namespace

std::string recoveryDetails(const RecoveryRecord &text, std::span<const RecoveryRecord> others)
{
    auto details
        = "This text: " + summary(text) + "\nIt begins:\n" + firstLines(decodeFile(text.bytes, text.format));
    if (!others.empty())
        details += "\nAlso waiting, asked about next:\n";
    for (const auto &other : others)
        details += "    " + summary(other) + '\n';
    return details;
}

} // namespace kevra
