// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/versions_commands.h"

#include "document/file_types.h"
#include "text/paths.h"

namespace kevra {
namespace {

std::string_view reasonText(KeptReason reason)
{
    switch (reason) {
    case KeptReason::Replaced:
        return "changed by another program, then saved over";
    case KeptReason::GivenUp:
        return "unsaved text that was given up";
    case KeptReason::EarlierForm:
        return "earlier form of a recovered text";
    case KeptReason::Deleted:
        return "deleted by a command";
    }
    return {};
}

} // namespace

VersionsCommands::VersionsCommands(
    FileCommandPorts ports, VersionStore &store, DocumentColouring &colouring, OpenElsewhere openElsewhere)
    : m_ports(ports)
    , m_store(store)
    , m_colouring(colouring)
    , m_openElsewhere(std::move(openElsewhere))
{
}

std::vector<VersionRow> VersionsCommands::rows(Scope scope) const
{
    std::vector<VersionRow> rows;
    for (auto &version : m_store.versions())
        if (scope == Scope::Everything || version.path == m_ports.document.file.path())
            rows.push_back({std::move(version.name), version.time, version.size, reasonText(version.reason),
                std::move(version.path)});
    return rows;
}

std::optional<std::string> VersionsCommands::textOf(const VersionRow &row) const
{
    const auto bytes = m_store.content(row.name);
    return bytes ? std::optional(decodeFile(*bytes, textKind(row.path)).text) : std::nullopt;
}

std::optional<TextsToCompare> VersionsCommands::comparison(const VersionRow &row) const
{
    auto text = textOf(row);
    if (!text)
        return std::nullopt;
    return TextsToCompare{
        "Kept version", std::move(*text), "In the window", std::string(m_ports.document.surface.Text())};
}

bool VersionsCommands::restore(const VersionRow &row)
{
    const auto text = textOf(row);
    if (!text)
        return false;
    m_ports.document.surface.Replace({0, m_ports.document.surface.TextLength()}, *text);
    m_ports.document.surface.SetSelStart(0);
    if (m_ports.document.state.takesColour())
        m_colouring.colourForTools();
    m_ports.document.state.unsaved = true;
    m_ports.main.showNote("Restored; Undo takes it back.");
    return true;
}

void VersionsCommands::openInNewWindow(const VersionRow &row)
{
    const auto bytes = m_store.content(row.name);
    if (!bytes || !m_openElsewhere(std::string(fileName(row.path)), *bytes))
        m_ports.messages.stop("This version could not be opened in a new window.");
}

bool VersionsCommands::remove(const VersionRow &row)
{
    return m_ports.messages.yes("Delete this version for good?") && m_store.remove(row.name);
}

} // namespace kevra
