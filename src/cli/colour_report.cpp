// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/colour_report.h"

#include "text/words.h"

#include <cstdio>

namespace kevra {
namespace {

std::string_view part(std::string_view text, TextRange range)
{
    return text.substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()));
}

std::string hexCode(Colour colour)
{
    char code[8];
    std::snprintf(code, sizeof code, "#%02X%02X%02X", colour.red(), colour.green(), colour.blue());
    return code;
}

std::string escaped(std::string_view text)
{
    std::string out;
    for (const char byte : text) {
        if (byte == '<')
            out += "&lt;";
        else if (byte == '>')
            out += "&gt;";
        else if (byte == '&')
            out += "&amp;";
        else if (byte != '\r')
            out += byte;
    }
    return out;
}

std::string withoutReturns(std::string_view text)
{
    std::string out(text);
    std::erase(out, '\r');
    return out;
}

/// Calls plain(text) and coloured(text, colour) alternately, covering the whole text in order.
template <typename Plain, typename Coloured>
void forEachStretch(std::string_view text, std::span<const ColourRun> runs, Plain plain, Coloured coloured)
{
    Offset at = 0;
    for (const auto &run : runs) {
        plain(part(text, {at, run.range.start}));
        coloured(part(text, run.range), run.colour);
        at = run.range.end;
    }
    plain(part(text, {at, static_cast<Offset>(text.size())}));
}

std::string htmlReport(std::string_view text, std::span<const ColourRun> runs, std::string_view title)
{
    std::string out = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>"
        + escaped(title) + "</title>\n</head>\n<body style=\"background: #FFFFFF; color: #000000\">\n<pre>";
    // Browsers drop a line feed that directly follows the tag.
    out += '\n';
    forEachStretch(
        text, runs, [&](std::string_view plain) { out += escaped(plain); },
        [&](std::string_view coloured, Colour colour) {
            out += "<span style=\"color: " + hexCode(colour) + "\">" + escaped(coloured) + "</span>";
        });
    return out += "</pre>\n</body>\n</html>\n";
}

std::string ansiReport(std::string_view text, std::span<const ColourRun> runs)
{
    std::string out;
    forEachStretch(
        text, runs, [&](std::string_view plain) { out += withoutReturns(plain); },
        [&](std::string_view coloured, Colour colour) {
            out += "\033[38;2;" + std::to_string(colour.red()) + ';' + std::to_string(colour.green()) + ';'
                + std::to_string(colour.blue()) + 'm' + withoutReturns(coloured) + "\033[0m";
        });
    return out;
}

std::string runsReport(std::string_view text, std::span<const ColourRun> runs)
{
    std::string out;
    Offset characters = 0;
    forEachStretch(
        text, runs, [&](std::string_view plain) { characters += characterCount(plain); },
        [&](std::string_view coloured, Colour colour) {
            const auto length = characterCount(coloured);
            out += std::to_string(characters) + ' ' + std::to_string(length) + ' ' + hexCode(colour) + '\n';
            characters += length;
        });
    return out;
}

} // namespace

std::string colourReport(
    std::string_view text, std::span<const ColourRun> runs, std::string_view title, ColourFormat format)
{
    switch (format) {
    case ColourFormat::Ansi:
        return ansiReport(text, runs);
    case ColourFormat::Runs:
        return runsReport(text, runs);
    case ColourFormat::Html:
        break;
    }
    return htmlReport(text, runs, title);
}

} // namespace kevra
