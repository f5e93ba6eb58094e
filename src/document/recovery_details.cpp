// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/recovery_details.h"

#include "document/recovery_list.h"
#include "text/utf8.h"

#include <array>
#include <ctime>

namespace kevra {
namespace {

constexpr int shownLines = 8;
constexpr int listedLines = 40;
constexpr std::size_t shownWidth = 100; ///< bytes of a line
constexpr std::size_t listedWidth = 400;

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

struct Excerpt {
    int lines;
    std::size_t width; ///< bytes of a line
    std::string_view indent;
};

std::string beginningOf(std::string_view text, const Excerpt &excerpt)
{
    std::string lines;
    for (int i = 0; i < excerpt.lines && !text.empty(); ++i) {
        const auto end = text.find("\r\n");
        const auto line = text.substr(0, end);
        lines.append(excerpt.indent).append(wholeCharacters(line, excerpt.width));
        lines.append(line.size() > excerpt.width ? "...\n" : "\n");
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    }
    if (!text.empty())
        lines.append(excerpt.indent).append("...\n");
    return lines;
}

} // namespace

std::string recoveryDetails(const RecoveryRecord &text)
{
    return "This text: " + summary(text) + "\nIt begins:\n"
        + beginningOf(decodeFile(text.bytes, text.format), {shownLines, shownWidth, "    "});
}

RecoveryRow recoveryRow(const RecoveryRecord &text)
{
    return {text.path, text.time, text.bytes.size(),
        beginningOf(decodeFile(text.bytes, text.format), {listedLines, listedWidth, ""})};
}

std::string recordNotice(WriteOutcome outcome)
{
    return outcome == WriteOutcome::Ok ? ""
                                       : "Unsaved text cannot be kept: " + std::string(reason(outcome)) + ".";
}

std::string passedOverNotice(std::span<const std::string> files)
{
    std::string text;
    for (const auto &file : files)
        text += (text.empty() ? "Passed over, as it is no regular file: " : ", ") + file;
    return text;
}

} // namespace kevra
