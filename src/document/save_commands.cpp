// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/save_commands.h"

#include "document/file_types.h"
#include "text/flag_guard.h"
#include "text/paths.h"

#include <utility>

namespace kevra {

SaveCommands::SaveCommands(FileCommandPorts ports)
    : m_ports(ports)
{
}

bool SaveCommands::nothingToSave()
{
    if (m_ports.document.surface.TextLength() > 0)
        return false;
    m_ports.messages.stop("Save what!");
    return true;
}

void SaveCommands::save()
{
    if (nothingToSave())
        return;
    // Opening may leave a refused path here, whose file this document must not replace.
    if (m_ports.document.file.owns(m_ports.document.state.currentPath))
        std::ignore = write(m_ports.document.state.currentPath, ReadOnlyFiles::Refuse); // reports failures
    else
        saveAs();
}

void SaveCommands::saveAsMenu()
{
    if (!nothingToSave())
        saveAs();
}

bool SaveCommands::saveAs()
{
    return saveAs("Save As", m_ports.document.state.currentPath);
}

bool SaveCommands::saveAs(const std::string &title, const std::string &proposed)
{
    const auto path = chooseTarget(title, proposed);
    if (!path || !write(*path, ReadOnlyFiles::Replace))
        return false;
    m_ports.document.state.currentPath = *path;
    m_ports.main.setTitlePath(*path);
    removeStaleFiles();
    m_ports.document.state.autosaveWritten = false;
    return true;
}

bool SaveCommands::saveBytesAs(const std::string &title, const std::string &proposed, std::string_view bytes)
{
    const auto path = chooseTarget(title, proposed);
    if (!path)
        return false;
    if (const auto existing = m_ports.files.read(*path); existing && existing != bytes)
        std::ignore = m_ports.backups.keep(*path, *existing); // the user agreed to replace it
    return succeeded(m_ports.files.writeDocument(*path, bytes, ReadOnlyFiles::Replace, {}), *path);
}

std::optional<std::string> SaveCommands::chooseTarget(const std::string &title, const std::string &proposed)
{
    if (!proposed.empty())
        m_filterIndex = saveFilterFor(proposed);
    const auto choice = m_ports.dialogs.saveFile({title, std::string(fileName(proposed)), saveFilters(),
        m_filterIndex, std::string(parentFolder(proposed))});
    if (!choice || choice->path.empty())
        return std::nullopt;
    m_filterIndex = choice->filterIndex;
    if (m_ports.files.fileExists(choice->path)
        && m_ports.messages.show({"Do you want to replace the existing file?", Icon::None, Buttons::OkCancel,
               "This File Exists"})
            != Answer::Ok)
        return std::nullopt;
    return choice->path;
}

void SaveCommands::reportTornWrite(const std::string &path)
{
    const auto copy = m_ports.files.safetyCopy();
    if (m_ports.messages.yes(path
            + " could be written only in part and may be damaged. Its old content and your text are both "
              "safe in "
            + copy
            + "; the next start completes the file from there.\n\n"
              "Do you want to save the text under another name now?"))
        saveAs();
}

bool SaveCommands::write(const std::string &path, ReadOnlyFiles readOnly)
{
    const FlagGuard busy(m_ports.document.state.busyLoadingOrSaving);
    const auto saved = m_ports.document.file.save(m_ports.document.surface.Text(), path, readOnly);
    if (saved == WriteOutcome::Torn)
        reportTornWrite(path);
    if (!succeeded(saved, path))
        return false;
    m_ports.document.state.unsaved = false;
    m_ports.document.keeper.textSaved();
    m_ports.main.refreshDocumentStatus();
    return true;
}

bool SaveCommands::succeeded(WriteOutcome saved, const std::string &path)
{
    const std::string folder(parentFolder(path));
    const bool lost = saved != WriteOutcome::Ok && !folder.empty() && !m_ports.files.folderExists(folder);
    const auto why = std::string(lost ? "its folder does not exist" : reason(saved));
    m_ports.main.showNote(saved == WriteOutcome::Ok ? "" : "Not saved: " + path + ": " + why + '.');
    return saved == WriteOutcome::Ok;
}

void SaveCommands::removeStaleFiles()
{
    m_removePreviewPage();
    if (const auto &folder = m_ports.application.tempFolder; !folder.empty())
        removeForeignPage(folder + '/' + previewPageName);
    m_removeAutosave();
}

void SaveCommands::removeForeignPage(const std::string &path)
{
    const auto stamp = m_ports.files.stamp(path);
    // The document itself may have this name, even if its path is spelt differently.
    const auto saved = m_ports.files.stamp(m_ports.document.state.currentPath);
    if (!stamp || m_ports.document.file.owns(path) || (saved && saved->identity == stamp->identity))
        return;
    const auto content = m_ports.files.read(path);
    if (!content || m_ports.backups.keep(path, *content, KeptReason::Deleted))
        std::ignore = m_ports.files.remove(path); // a page that stays does no harm
}

} // namespace kevra
