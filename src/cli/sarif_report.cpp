// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/analyse_report.h"
#include "cli/file_name.h"
#include "text/system_path.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace kevra {
namespace {

using script::Finding;
using Json = nlohmann::ordered_json;

std::string uriOf(std::string_view named)
{
    const auto path = systemPath(named);
    const auto name = path.generic_string();
    const auto *scheme = !path.is_absolute() ? "" : name.starts_with('/') ? "file://" : "file:///";
    return scheme + percentEncoded(name);
}

std::string_view sarifLevel(script::Level level)
{
    return level == script::Level::Hint ? "note" : script::levelName(level);
}

Json sarifRules()
{
    Json rules = Json::array();
    for (const auto &rule : script::allRules()) {
        rules.push_back({{"id", script::code(rule.rule)}, {"shortDescription", {{"text", rule.title}}},
            {"fullDescription", {{"text", rule.why}}}, {"help", {{"text", rule.why}}},
            {"defaultConfiguration", {{"level", sarifLevel(rule.level)}}}});
    }
    return rules;
}

class FileResults {
public:
    explicit FileResults(const AnalysedFile &file)
        : m_positions(file.text)
        , m_artifact{{"uri", uriOf(file.name)}}
    {
    }

    [[nodiscard]] Json result(const Finding &finding) const
    {
        const auto rules = script::allRules();
        const auto index = std::ranges::find(rules, finding.rule, &script::RuleInfo::rule) - rules.begin();
        Json out{{"ruleId", script::code(finding.rule)}, {"ruleIndex", index},
            {"level", sarifLevel(finding.level())}, {"message", {{"text", finding.what}}},
            {"locations", Json::array({location(finding.range)})}};
        for (const auto &related : finding.related) {
            auto place = location(related.range);
            place["message"] = {{"text", related.what}};
            out["relatedLocations"].push_back(std::move(place));
        }
        for (const auto &fix : finding.fixes)
            out["fixes"].push_back(sarifFix(fix));
        return out;
    }

private:
    [[nodiscard]] Json region(TextRange range) const
    {
        const auto start = m_positions.at(range.start);
        const auto end = m_positions.at(range.end);
        return {{"startLine", start.line}, {"startColumn", start.column}, {"endLine", end.line},
            {"endColumn", end.column}};
    }

    [[nodiscard]] Json location(TextRange range) const
    {
        return {{"physicalLocation", {{"artifactLocation", m_artifact}, {"region", region(range)}}}};
    }

    [[nodiscard]] Json sarifFix(const script::Fix &fix) const
    {
        Json replacements = Json::array();
        for (const auto &edit : fix.edits)
            replacements.push_back(
                {{"deletedRegion", region(edit.range)}, {"insertedContent", {{"text", edit.text}}}});
        const Json change{{"artifactLocation", m_artifact}, {"replacements", std::move(replacements)}};
        return {{"description", {{"text", fix.title}}}, {"artifactChanges", Json::array({change})}};
    }

    Positions m_positions;
    Json m_artifact;
};

} // namespace

std::string sarifReport(std::span<const AnalysedFile> files)
{
    Json results = Json::array();
    for (const auto &file : files) {
        const FileResults converted(file);
        for (const auto &finding : file.findings)
            results.push_back(converted.result(finding));
    }
    const Json driver{{"name", "kevra-cli"}, {"version", KEVRA_VERSION}, {"rules", sarifRules()}};
    const Json run{
        {"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", std::move(results)}};
    const Json log{{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"}, {"version", "2.1.0"},
        {"runs", Json::array({run})}};
    return log.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

} // namespace kevra
