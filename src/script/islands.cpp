// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/islands.h"

#include "script/markup.h"

#include <algorithm>
#include <array>

namespace kevra::script {

namespace {

enum class Language : std::uint8_t { Unsaid, VBScript, Other };

struct Ending {
    std::string_view ending;
    FileKind kind;
};
constexpr std::array endings{Ending{".vbs", FileKind::Script}, Ending{".wsf", FileKind::HostFile},
    Ending{".wsc", FileKind::HostFile}, Ending{".sct", FileKind::HostFile}, Ending{".htm", FileKind::Page},
    Ending{".html", FileKind::Page}, Ending{".hta", FileKind::Page}, Ending{".asp", FileKind::ServerPage},
    Ending{".asa", FileKind::ServerPage}};

Language languageNamed(std::string_view name)
{
    constexpr std::array<std::string_view, 4> names{
        "vbscript", "vbs", "text/vbscript", "application/vbscript"};
    if (name.empty())
        return Language::Unsaid;
    const bool known = std::ranges::any_of(names, [&](std::string_view n) { return sameWord(n, name); });
    return known ? Language::VBScript : Language::Other;
}

Language languageOf(const Tag &tag)
{
    const auto language = languageNamed(tag.value("language"));
    return language == Language::Unsaid ? languageNamed(tag.value("type")) : language;
}

/// &quot; and the like: decoded text would have other positions than the file.
bool hasEntity(std::string_view text)
{
    for (auto at = text.find('&'); at != text.npos; at = text.find('&', at + 1)) {
        const auto end = text.find_first_not_of(
            "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789#", at + 1);
        if (end != text.npos && text[end] == ';' && end > at + 1)
            return true;
    }
    return false;
}

class IslandFinder {
public:
    IslandFinder(std::string_view text, FileKind kind)
        : m_text(text)
        , m_kind(kind)
        , m_isXml(kind == FileKind::HostFile && text.substr(0, 512).find("<?xml") != text.npos)
        , m_client(kind == FileKind::ServerPage ? 1 : 0)
    {
        m_islands.resize(m_client + 1);
        m_islands[0].onServer = kind == FileKind::ServerPage;
    }

    std::vector<Island> run();

private:
    std::size_t server(std::size_t at);
    std::size_t comment(std::size_t at);
    std::size_t element(std::size_t at);
    std::size_t scriptElement(const Tag &tag);
    void hostElement(const Tag &tag);
    void eventAttributes(const Tag &tag);
    std::size_t serverPartsOf(TextRange range);
    static void add(Island &island, Piece piece);
    /// An empty value need not point into the text: an attribute may have no value.
    [[nodiscard]] TextRange rangeOf(std::string_view part) const
    {
        if (part.empty())
            return {};
        const auto start = static_cast<Offset>(part.data() - m_text.data());
        return {start, start + static_cast<Offset>(part.size())};
    }
    [[nodiscard]] bool hasServerPart(TextRange range) const
    {
        return m_kind == FileKind::ServerPage && part(range).find("<%") != std::string_view::npos;
    }
    [[nodiscard]] std::string_view part(TextRange range) const
    {
        return m_text.substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()));
    }

    std::string_view m_text;
    FileKind m_kind;
    bool m_isXml;
    bool m_serverSpeaksVBScript = true;
    Language m_pageLanguage = Language::Unsaid; ///< of event attributes: that of the first script
    std::vector<Island> m_islands;
    std::size_t m_client; ///< index of the browser's part, or of the current job
    std::optional<Offset> m_hostStart; ///< of the open job or component
};

std::vector<Island> IslandFinder::run()
{
    for (auto at = m_text.find('<'); at < m_text.size(); at = m_text.find('<', at)) {
        const auto rest = m_text.substr(at, 4);
        if (m_kind == FileKind::ServerPage && rest.starts_with("<%"))
            at = server(at);
        else if (rest == "<!--")
            at = comment(at);
        else
            at = element(at);
    }
    std::erase_if(
        m_islands, [](const Island &island) { return island.pieces.empty() && island.includes.empty(); });
    return std::move(m_islands);
}

void IslandFinder::add(Island &island, Piece piece)
{
    piece.startsUnit = piece.startsUnit && !island.pieces.empty();
    island.pieces.push_back(piece);
}

/// <% statements %>, <%= expression %> and <%@ directive %>.
std::size_t IslandFinder::server(std::size_t at)
{
    const auto end = past(m_text, "%>", at + 2);
    const auto closed = end >= at + 4 && m_text.substr(end - 2, 2) == "%>";
    TextRange range{static_cast<Offset>(at + 2), static_cast<Offset>(closed ? end - 2 : end)};
    const auto inside = part(range);
    const auto sign = inside.find_first_not_of(" \t\r\n");
    const char first = sign == inside.npos ? ' ' : inside[sign];
    if (first == '@') {
        const auto language = findWord(part(range), "language", 0);
        if (language != std::string_view::npos
            && findWord(part(range), "vbscript", language) == std::string_view::npos)
            m_serverSpeaksVBScript = false;
    } else if (!m_serverSpeaksVBScript) {
        m_islands[0].incomplete = true;
    } else if (first == '=') {
        range.start += static_cast<Offset>(sign) + 1;
        add(m_islands[0], {range, PieceKind::Output});
    } else {
        add(m_islands[0], {range});
        m_islands[0].elements.push_back({static_cast<Offset>(at), static_cast<Offset>(end)});
    }
    return end;
}

/// Script in a comment is not run by the browser. A server takes #include and <% %> from comments.
std::size_t IslandFinder::comment(std::size_t at)
{
    const auto end = past(m_text, "-->", at + 4);
    const TextRange range{static_cast<Offset>(at), static_cast<Offset>(end)};
    if (m_kind != FileKind::ServerPage)
        return end;
    const auto words = trimmed(part(range).substr(4));
    if (words.starts_with('#') && sameWord(words.substr(1, 7), "include")) {
        const auto open = words.find('"');
        const auto close = words.find('"', open + 1);
        if (open != words.npos && close != words.npos) {
            const auto path = words.substr(open + 1, close - open - 1);
            m_islands[0].includes.push_back({path, rangeOf(path)});
        }
    }
    return serverPartsOf(range);
}

/// The end of the range, or of its last server part, which may extend past it.
std::size_t IslandFinder::serverPartsOf(TextRange range)
{
    const auto start = static_cast<std::size_t>(range.start);
    auto end = static_cast<std::size_t>(range.end);
    if (m_kind != FileKind::ServerPage)
        return end;
    const auto inside = part(range);
    for (auto at = inside.find("<%"); at < inside.size(); at = inside.find("<%", at)) {
        at = server(start + at) - start;
        end = std::max(end, start + at);
    }
    return end;
}

std::size_t IslandFinder::element(std::size_t at)
{
    const auto tag = readTag(m_text, at);
    if (tag.name.empty())
        return at + 1;
    const auto end = serverPartsOf(tag.range);
    if (end > static_cast<std::size_t>(tag.range.end))
        return end;
    if (m_kind == FileKind::HostFile)
        hostElement(tag);
    if (tag.closing)
        return end;
    if (sameWord(tag.name, "script"))
        return scriptElement(tag);
    if (m_kind == FileKind::HostFile)
        return end;
    eventAttributes(tag);
    for (const std::string_view raw : {"style", "textarea", "xmp"}) {
        if (sameWord(tag.name, raw) && !tag.empty && m_kind == FileKind::Page)
            return std::min(findWord(m_text, "</" + std::string(raw), end), m_text.size());
    }
    return end;
}

/// Jobs and components each have a namespace; objects belong to the one around them.
void IslandFinder::hostElement(const Tag &tag)
{
    if (sameWord(tag.name, "job") || sameWord(tag.name, "component")) {
        if (tag.closing && m_hostStart)
            m_islands[m_client].elements.push_back({*m_hostStart, tag.range.end});
        m_hostStart = tag.closing ? std::nullopt : std::optional(tag.range.start);
        m_islands.emplace_back();
        m_islands.back().name = tag.closing ? std::string_view{} : tag.value("id");
        m_client = m_islands.size() - 1;
    } else if (sameWord(tag.name, "object") && tag.find("id") != nullptr) {
        const auto name = tag.value("id");
        m_islands[m_client].objects.push_back({name, tag.value("progid"), rangeOf(name)});
    } else if (sameWord(tag.name, "reference") || sameWord(tag.name, "implements")) {
        m_islands[m_client].incomplete = true;
    }
}

std::size_t IslandFinder::scriptElement(const Tag &tag)
{
    const auto contentStart = static_cast<std::size_t>(tag.range.end);
    const bool onServer = m_kind == FileKind::ServerPage && sameWord(tag.value("runat"), "server");
    auto &island = m_islands[onServer ? 0 : m_client];
    const auto language = languageOf(tag);
    const bool pageDefault = language == Language::Unsaid && onServer && m_serverSpeaksVBScript;
    if (m_pageLanguage == Language::Unsaid && !onServer)
        m_pageLanguage = language == Language::VBScript ? language : Language::Other;
    const auto source = tag.value("src");
    const bool isVbscript = language == Language::VBScript || pageDefault;
    if (!source.empty() && isVbscript)
        island.includes.push_back({source, rangeOf(source)});
    if (tag.empty && m_kind == FileKind::HostFile)
        return contentStart;
    const auto end = std::min(findWord(m_text, "</script", contentStart), m_text.size());
    island.elements.push_back({tag.range.start, static_cast<Offset>(past(m_text, ">", end))});
    auto content = m_text.substr(contentStart, end - contentStart);
    if (trimmed(content).starts_with("<![CDATA[")) {
        content = trimmed(content).substr(9);
        content = content.substr(0, content.find("]]>"));
    } else if (m_isXml && hasEntity(content)) {
        island.incomplete = true;
        return end;
    }
    const bool hasServerCode = !onServer && hasServerPart(rangeOf(content));
    const auto serverCodeEnd = hasServerCode ? serverPartsOf(rangeOf(content)) : end;
    if (isVbscript && !hasServerCode && !trimmed(content).empty())
        add(island,
            {rangeOf(content), PieceKind::Statements, !onServer, m_kind != FileKind::HostFile,
                tag.find("event") != nullptr});
    island.incomplete = island.incomplete || !isVbscript || hasServerCode;
    return std::max(end, serverCodeEnd);
}

/// onclick="vbscript:...", and if the page's scripts are VBScript, handlers that do not look like JavaScript.
void IslandFinder::eventAttributes(const Tag &tag)
{
    constexpr std::string_view prefix = "vbscript:";
    for (const auto &attribute : tag.attributes) {
        if (attribute.name.size() < 4 || attribute.value.empty()
            || !sameWord(attribute.name.substr(0, 2), "on"))
            continue;
        const bool prefixed = sameWord(trimmed(attribute.value).substr(0, prefix.size()), prefix);
        const bool declared = languageOf(tag) == Language::VBScript;
        const bool inherited = m_pageLanguage == Language::VBScript && languageOf(tag) == Language::Unsaid
            && attribute.value.find_first_of(";{}") == std::string_view::npos
            && findWord(attribute.value, "javascript:", 0) == std::string_view::npos
            && findWord(attribute.value, "return", 0) == std::string_view::npos;
        if (!(prefixed || declared || inherited) || hasEntity(attribute.value)
            || hasServerPart(rangeOf(attribute.value)))
            continue;
        const auto code = prefixed ? trimmed(attribute.value).substr(prefix.size()) : attribute.value;
        if (!trimmed(code).empty())
            add(m_islands[m_client], {rangeOf(code), PieceKind::Statements, true, false, true});
    }
}

} // namespace

std::optional<FileKind> fileKind(std::string_view path)
{
    const auto dot = path.rfind('.');
    const auto ending = dot == path.npos ? std::string_view{} : path.substr(dot);
    const auto found
        = std::ranges::find_if(endings, [&](const Ending &e) { return sameWord(e.ending, ending); });
    if (found == endings.end())
        return std::nullopt;
    return found->kind;
}

std::vector<Island> findIslands(std::string_view text, FileKind kind)
{
    if (kind != FileKind::Script)
        return IslandFinder(text, kind).run();
    Island whole;
    whole.pieces.push_back({{0, static_cast<Offset>(text.size())}});
    return {whole};
}

} // namespace kevra::script
