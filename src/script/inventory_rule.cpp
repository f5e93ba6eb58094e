// SPDX-License-Identifier: GPL-3.0-or-later
// What a script loses on a Windows without VBScript: its host, and the classes implemented by the engine.
#include "script/rule_tables.h"
#include "script/sorted_names.h"

#include <algorithm>
#include <array>
#include <map>

namespace kevra::script {
namespace {

/// ProgIDs implemented by the engine, or depending on it.
constexpr std::array engineProgIds{
    std::string_view("VBScript.RegExp"),
    std::string_view("MSScriptControl.ScriptControl"),
    std::string_view("Scripting.Encoder"),
    std::string_view("InternetExplorer.Application"),
    std::string_view("WSHController"),
};

/// Programs that run scripts from a command line.
constexpr std::array scriptHosts{
    std::string_view("wscript"),
    std::string_view("cscript"),
    std::string_view("mshta"),
};

constexpr std::array hostNames{
    "the script host", "the script host", "VBScript in pages", "VBScript on the server"};

[[nodiscard]] bool same(std::string_view a, std::string_view b)
{
    return !comesBefore(a, b) && !comesBefore(b, a);
}

[[nodiscard]] bool isWordByte(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

/// The script host named in a command line; empty if there is none.
[[nodiscard]] std::string_view hostIn(std::string_view text)
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (at > 0 && isWordByte(text[at - 1]))
            continue;
        for (const auto host : scriptHosts) {
            const auto after = at + host.size();
            if (same(text.substr(at, host.size()), host)
                && (after == text.size() || text[after] == ' ' || same(text.substr(after, 4), ".exe")))
                return host;
        }
    }
    return {};
}

[[nodiscard]] std::string_view withoutVersion(std::string_view progId)
{
    const auto last = progId.find_last_not_of("0123456789.");
    return last == std::string_view::npos ? progId : progId.substr(0, last + 1);
}

class Inventory {
public:
    explicit Inventory(const Model &model)
        : m_model(model)
    {
        for (NodeId id = 1; id < model.tree.size(); ++id) {
            const auto kind = model.kind(id);
            if (kind == NodeKind::New && same(model.spelling(id), "RegExp"))
                add("VBScript.RegExp", id);
            else if (kind == NodeKind::String)
                lookAt(id);
        }
    }

    void report(FindingList &findings) const
    {
        const auto first = m_model.tree[m_model.tree.root()].firstChild;
        if (first == 0)
            return;
        const auto range = m_model.tree[first].range();
        const auto end = m_model.script.textOf(range).find_first_of("\r\n");
        const auto length = end == std::string_view::npos ? range.length() : static_cast<Offset>(end);
        std::string what = "On a Windows without VBScript this script loses "
            + std::string(hostNames[static_cast<std::size_t>(m_model.surroundings.host)]);
        for (const auto &[name, places] : m_items)
            what
                += ", " + name + (places.size() > 1 ? " (" + std::to_string(places.size()) + " places)" : "");
        auto &finding = findings.add(Rule::NeedsVbscript, {range.start, range.start + length}, what + ".");
        for (const auto &[name, places] : m_items) {
            for (const auto place : places)
                finding.related.push_back({m_model.tree[place].range(), name});
        }
    }

private:
    void lookAt(NodeId string)
    {
        const auto text = m_model.script.textOf(string);
        const auto inside = text.substr(1, text.size() - std::min<std::size_t>(text.size(), 2));
        const auto progId = std::ranges::find_if(engineProgIds,
            [&](std::string_view engineProgId) { return same(withoutVersion(inside), engineProgId); });
        if (progId != engineProgIds.end())
            add(std::string(*progId), string);
        else if (const auto host = hostIn(inside); !host.empty())
            add(std::string(host) + ".exe", string);
    }

    void add(const std::string &name, NodeId place) { m_items[name].push_back(place); }

    const Model &m_model;
    std::map<std::string, std::vector<NodeId>> m_items;
};

} // namespace

void checkNeedsVbscript(const Model &model, FindingList &findings)
{
    Inventory(model).report(findings);
}

} // namespace kevra::script
