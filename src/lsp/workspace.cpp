// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/workspace.h"

#include "lsp/uri.h"
#include "script/file_analysis.h"

#include <algorithm>
#include <array>

namespace kevra::lsp {
namespace {

using script::FileKind;

struct Language {
    std::string_view id;
    FileKind kind;
};
/// For texts without a known file name extension.
constexpr std::array languages{Language{"html", FileKind::Page}, Language{"asp", FileKind::ServerPage},
    Language{"aspvbs", FileKind::ServerPage}, Language{"wsf", FileKind::HostFile},
    Language{"xml", FileKind::HostFile}};

[[nodiscard]] FileKind kindOf(const std::string &uri, std::string_view language)
{
    if (const auto kind = script::fileKind(pathOfUri(uri).value_or(uri)))
        return *kind;
    const auto known = std::ranges::find(languages, language, &Language::id);
    return known != languages.end() ? known->kind : FileKind::Script;
}

/// Normalises a file's URI: clients differ in which characters they escape.
[[nodiscard]] std::string keyOf(const std::string &uri)
{
    const auto path = pathOfUri(uri);
    return path ? uriOfPath(*path) : uri;
}

} // namespace

WorkspaceFile::WorkspaceFile(std::string uri, FileKind kind, TextDocument text)
    : m_uri(std::move(uri))
    , m_kind(kind)
    , m_text(std::move(text))
{
}

WorkspaceFile::Known &WorkspaceFile::known() const
{
    if (!m_known)
        m_known = std::make_unique<Known>(m_text.text(), m_kind);
    return *m_known;
}

const script::FileModel &WorkspaceFile::model() const
{
    return known().model;
}

const std::vector<script::Finding> &WorkspaceFile::findings(FileSystem &disk) const
{
    auto &findings = known().findings;
    if (!findings) {
        findings = known().model.findings();
        script::mergeFindings(
            *findings, disk.pageFindings(m_text.text(), m_kind, pathOfUri(m_uri).value_or("")));
    }
    return *findings;
}

void WorkspaceFile::forgetFindings()
{
    if (m_known)
        m_known->findings.reset();
}

void WorkspaceFile::replace(TextRange range, std::string_view text)
{
    m_text.replace(range, text);
    m_known.reset();
}

void WorkspaceFile::replaceAll(std::string text)
{
    m_text.replaceAll(std::move(text));
    m_known.reset();
}

void Workspace::addFolder(const std::string &uri)
{
    if (const auto path = pathOfUri(uri))
        m_folders.insert(*path);
}

void Workspace::removeFolder(const std::string &uri)
{
    if (const auto path = pathOfUri(uri))
        m_folders.erase(*path);
}

WorkspaceFile &Workspace::open(const std::string &uri, std::string_view language, std::string text)
{
    close(uri);
    WorkspaceFile document(uri, kindOf(uri, language), TextDocument(std::move(text), m_unit));
    return m_open.emplace(keyOf(uri), std::move(document)).first->second;
}

void Workspace::close(const std::string &uri)
{
    m_open.erase(keyOf(uri));
}

WorkspaceFile *Workspace::find(const std::string &uri)
{
    const auto found = m_open.find(keyOf(uri));
    return found != m_open.end() ? &found->second : nullptr;
}

const WorkspaceFile *Workspace::load(const std::string &uri)
{
    if (const auto *open = find(uri))
        return open;
    const auto path = pathOfUri(uri);
    if (!path)
        return nullptr;
    const auto key = keyOf(uri);
    auto &entry = m_onDisk[key];
    if (m_checked.insert(key).second)
        refresh(entry, key, *path);
    return entry.document.get();
}

void Workspace::refresh(OnDisk &entry, const std::string &uri, const std::string &path)
{
    const auto stamp = m_disk.stamp(path);
    if (entry.document && stamp == entry.stamp)
        return;
    entry.document.reset();
    entry.stamp = stamp;
    if (auto text = stamp != 0 ? m_disk.read(path) : std::nullopt)
        entry.document
            = std::make_unique<WorkspaceFile>(uri, kindOf(uri, {}), TextDocument(std::move(*text), m_unit));
}

std::set<std::string> Workspace::uris()
{
    std::set<std::string> uris;
    for (const auto &entry : m_open)
        uris.insert(entry.first);
    for (const auto &folder : m_folders) {
        for (const auto &path : m_disk.scriptsBelow(folder))
            uris.insert(uriOfPath(path));
    }
    return uris;
}

std::vector<const WorkspaceFile *> Workspace::all()
{
    std::vector<const WorkspaceFile *> found;
    for (const auto &uri : uris()) {
        if (const auto *document = load(uri))
            found.push_back(document);
    }
    return found;
}

/// URIs.
std::vector<std::string> Workspace::included(const WorkspaceFile &document, const script::FilePart &part)
{
    std::vector<std::string> uris;
    if (const auto path = pathOfUri(document.uri())) {
        for (const auto &file : part.island.includes)
            uris.push_back(uriOfPath(pathBeside(*path, file.path)));
    }
    return uris;
}

std::vector<SharedPart> Workspace::includedParts(const WorkspaceFile &document, const script::FilePart &part)
{
    std::vector<SharedPart> found;
    std::set<std::string> seen{keyOf(document.uri())};
    auto uris = included(document, part);
    for (std::size_t i = 0; i < uris.size(); ++i) {
        const auto *file = seen.insert(uris[i]).second ? load(uris[i]) : nullptr;
        for (std::size_t k = 0; file && k < file->model().parts().size(); ++k) {
            const auto &other = *file->model().parts()[k];
            found.push_back({file, &other});
            std::ranges::move(included(*file, other), std::back_inserter(uris));
        }
    }
    return found;
}

const WorkspaceFile *Workspace::includedAt(const WorkspaceFile &document, Offset offset)
{
    const auto path = pathOfUri(document.uri());
    for (const auto &part : document.model().parts()) {
        for (const auto &file : part->island.includes) {
            if (path && file.place.start <= offset && offset <= file.place.end)
                return load(uriOfPath(pathBeside(*path, file.path)));
        }
    }
    return nullptr;
}

std::vector<Workspace::Include> Workspace::allIncludes()
{
    std::vector<Include> includes;
    for (const auto &other : uris()) {
        // A plain script includes no other file.
        const auto *host = script::fileKind(other) != FileKind::Script ? load(other) : nullptr;
        if (!host)
            continue;
        for (const auto &part : host->model().parts()) {
            for (auto &uri : included(*host, *part))
                includes.push_back({{host, part.get()}, std::move(uri)});
        }
    }
    return includes;
}

std::vector<SharedPart> Workspace::sharing(const WorkspaceFile &document, const script::FilePart &first)
{
    // In both directions; an included file counts with all its parts.
    auto includes = allIncludes();
    std::vector<SharedPart> found;
    const auto add = [&](const WorkspaceFile *of, const script::FilePart *part) {
        const bool known = std::ranges::any_of(found, [&](const SharedPart &s) { return s.part == part; });
        if (!known)
            found.push_back({of, part});
    };
    add(&document, &first);
    for (auto &uri : included(document, first))
        includes.push_back({found.front(), std::move(uri)});
    for (std::size_t i = 0; i < found.size(); ++i) {
        for (const auto &include : includes) {
            if (include.from.part == found[i].part) {
                if (const auto *to = load(include.to)) {
                    for (const auto &part : to->model().parts())
                        add(to, part.get());
                }
            } else if (include.to == keyOf(found[i].document->uri())) {
                add(include.from.document, include.from.part);
            }
        }
    }
    return found;
}

} // namespace kevra::lsp
