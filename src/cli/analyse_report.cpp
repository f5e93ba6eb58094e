// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/analyse_report.h"

#include "cli/file_name.h"

#include "text/utf8.h"
#include "text/words.h"

#include <nlohmann/json.hpp>

namespace kevra {
namespace {

constexpr std::size_t blockBytes = 4096;

using script::Finding;
using Json = nlohmann::ordered_json;

std::string place(const AnalysedFile &file, Position at)
{
    return file.name + ':' + std::to_string(at.line) + ':' + std::to_string(at.column) + ": ";
}

std::string textLine(const AnalysedFile &file, const Finding &finding, Position at)
{
    return place(file, at) + std::string(script::levelName(finding.level())) + ' '
        + script::code(finding.rule) + ": " + finding.what + '\n';
}

/// The format of compiler messages; a hint becomes a note.
std::string gccLine(const AnalysedFile &file, const Finding &finding, Position at)
{
    const auto level = finding.level() == script::Level::Hint ? "note" : script::levelName(finding.level());
    return place(file, at) + std::string(level) + ": " + finding.what + " [" + script::code(finding.rule)
        + "]\n";
}

Json jsonRange(const Positions &positions, TextRange range)
{
    const auto start = positions.at(range.start);
    const auto end = positions.at(range.end);
    return {{"line", start.line}, {"column", start.column}, {"endLine", end.line}, {"endColumn", end.column}};
}

Json jsonFinding(const Positions &positions, const Finding &finding)
{
    auto json = jsonRange(positions, finding.range);
    json["level"] = script::levelName(finding.level());
    json["code"] = script::code(finding.rule);
    json["text"] = finding.what;
    json["why"] = script::ruleInfo(finding.rule).why;
    json["related"] = Json::array();
    for (const auto &related : finding.related) {
        auto entry = jsonRange(positions, related.range);
        entry["text"] = related.what;
        json["related"].push_back(std::move(entry));
    }
    json["fixes"] = Json::array();
    for (const auto &fix : finding.fixes) {
        Json edits = Json::array();
        for (const auto &edit : fix.edits) {
            auto entry = jsonRange(positions, edit.range);
            entry["insert"] = edit.text;
            edits.push_back(std::move(entry));
        }
        json["fixes"].push_back({{"title", fix.title}, {"edits", std::move(edits)}});
    }
    return json;
}

/// One JSON object on one line.
std::string jsonReport(const AnalysedFile &file, const Positions &positions)
{
    Json findings = Json::array();
    for (const auto &finding : file.findings)
        findings.push_back(jsonFinding(positions, finding));
    Json json{{"file", nameAsUtf8(file.name)}};
    if (!isUtf8(file.name))
        json["fileBytes"] = percentEncoded(file.name);
    json["findings"] = std::move(findings);
    return json.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

std::string wrapped(std::string_view text)
{
    constexpr std::size_t width = 79;
    std::string out;
    while (text.size() > width) {
        const auto end = text.rfind(' ', width);
        out.append(text.substr(0, end)) += '\n';
        text.remove_prefix(end + 1);
    }
    return out.append(text) += '\n';
}

} // namespace

Positions::Positions(std::string_view text)
    : m_text(text)
    , m_lines(text)
{
    Offset characters = 0;
    for (std::size_t at = 0; at <= text.size(); at += blockBytes) {
        m_characters.push_back(characters);
        characters += characterCount(text.substr(at, blockBytes));
    }
}

Offset Positions::charactersBefore(Offset offset) const
{
    const auto end = static_cast<std::size_t>(offset);
    const auto block = end / blockBytes;
    return m_characters[block] + characterCount(m_text.substr(block * blockBytes, end % blockBytes));
}

Position Positions::at(Offset offset) const
{
    const auto line = m_lines.lineAt(offset);
    return {line, charactersBefore(offset) - charactersBefore(m_lines.lineStart(line)) + 1};
}

std::string analysisReport(const AnalysedFile &file, AnalysisFormat format)
{
    if (file.findings.empty() && format != AnalysisFormat::Json)
        return {};
    const Positions positions(file.text);
    if (format == AnalysisFormat::Json)
        return jsonReport(file, positions);
    std::string out;
    for (const auto &finding : file.findings) {
        const auto at = positions.at(finding.range.start);
        out += format == AnalysisFormat::Gcc ? gccLine(file, finding, at) : textLine(file, finding, at);
    }
    return out;
}

std::string explanation(script::Rule rule)
{
    const auto &info = script::ruleInfo(rule);
    return script::code(rule) + ", " + std::string(script::levelName(info.level)) + ": "
        + std::string(info.title) + "\n\n" + wrapped(info.why);
}

} // namespace kevra
