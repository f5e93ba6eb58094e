// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/disk_changes.h"

#include "text/paths.h"

#include <algorithm>

namespace kevra {
namespace {

std::string barText(DiskBar bar, const std::string &path)
{
    const std::string name(fileName(path));
    switch (bar) {
    case DiskBar::Changed:
        return name + " has been changed by another program.";
    case DiskBar::Gone:
        return name + " is no longer there: another program has deleted or renamed it. Save writes it again.";
    case DiskBar::Replaced:
        return "Another program had changed " + name + ". Its version was kept before the file was saved.";
    case DiskBar::None:
        break;
    }
    return {};
}

} // namespace

DiskChanges::DiskChanges(FileCommandPorts ports, OpenCommands &opening, DiskChangeView &view)
    : m_ports(ports)
    , m_opening(opening)
    , m_view(view)
{
}

DiskBar DiskChanges::barForState()
{
    auto &file = m_ports.document.file;
    const auto state = file.diskState();
    if (state == DiskState::Changed)
        return m_acceptedChange == file.stampOnDisk() ? DiskBar::None : DiskBar::Changed;
    m_acceptedChange.reset();
    if (state == DiskState::Gone)
        return m_acceptedDeletion && m_acceptedDeletion == file.stampWhenOurs() ? DiskBar::None
                                                                                : DiskBar::Gone;
    m_acceptedDeletion.reset();
    return file.replacedContent() ? DiskBar::Replaced : DiskBar::None;
}

void DiskChanges::check()
{
    if (m_ports.document.state.busyLoadingOrSaving)
        return;
    const bool sameFile = m_path == m_ports.document.file.path();
    if (!sameFile) {
        m_acceptedChange.reset();
        m_acceptedDeletion.reset();
    }
    const auto bar = barForState();
    if (bar == DiskBar::Changed && m_reloadsByItself
        && m_ports.document.file.wasReadOrWrittenAs(m_ports.document.surface.Text()))
        return reload();
    if (bar == DiskBar::Gone && m_bar != bar)
        m_ports.document.keeper.fileLost();
    if (bar != m_bar || !sameFile)
        show(bar);
}

bool DiskChanges::isCheckDue() const
{
    return m_bar != DiskBar::None || m_ports.document.file.replacedContent();
}

void DiskChanges::show(DiskBar bar)
{
    m_bar = bar;
    m_path = m_ports.document.file.path();
    m_view.showDiskBar(bar, barText(bar, m_path));
}

void DiskChanges::reload()
{
    const auto caret = m_ports.document.surface.SelStart();
    const auto line = m_ports.document.surface.FirstVisibleLine();
    if (!m_opening.reload())
        return m_ports.main.showNote("Not reloaded: " + m_ports.document.file.path() + " cannot be read.");
    m_ports.document.surface.SetSelStart(std::min(caret, m_ports.document.surface.TextLength()));
    m_ports.document.surface.SetFirstVisibleLine(line);
    show(DiskBar::None);
    m_ports.main.setInformation("");
    m_ports.main.showNote("Reloaded from the disk.");
}

void DiskChanges::keepMine()
{
    m_acceptedChange = m_ports.document.file.stampOnDisk();
    // Compared by stamp, so that a file written and deleted later is reported again.
    m_acceptedDeletion = m_bar == DiskBar::Gone ? m_ports.document.file.stampWhenOurs() : std::nullopt;
    show(DiskBar::None);
}

void DiskChanges::compare()
{
    const auto &file = m_ports.document.file;
    const auto bytes = m_bar == DiskBar::Replaced ? file.replacedContent() : m_ports.files.read(file.path());
    if (!bytes)
        return m_ports.main.showNote("Not compared: " + file.path() + " cannot be read.");
    m_view.showComparison(
        {m_bar == DiskBar::Replaced ? "Kept version of the other program" : "On the disk: " + file.path(),
            file.decodedAs(*bytes), "In the window", std::string(m_ports.document.surface.Text())});
}

void DiskChanges::putBack()
{
    auto &file = m_ports.document.file;
    if (!file.replacedContent())
        return;
    const auto saved = file.putBack();
    if (saved != WriteOutcome::Ok)
        return m_ports.main.showNote(
            "Not put back: " + file.path() + ": " + std::string(reason(saved)) + '.');
    // The window has the only copy of its text again.
    m_ports.document.state.unsaved = true;
    m_ports.document.keeper.fileLost();
    check();
    m_ports.main.refreshDocumentStatus();
}

void DiskChanges::close()
{
    m_ports.document.file.forgetReplaced();
    show(DiskBar::None);
}

} // namespace kevra
