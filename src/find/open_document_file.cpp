// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/open_document_file.h"

#include "colour/recolouring.h"
#include "text/flag_guard.h"

#include <utility>

namespace kevra {
namespace {

/// The start of a line, counted from 0; of the last line if there are fewer.
Offset startOfLine(std::string_view text, Offset line)
{
    std::size_t start = 0;
    for (auto end = text.find('\n'); line > 0 && end != text.npos; end = text.find('\n', start), --line)
        start = end + 1;
    return static_cast<Offset>(start);
}

} // namespace

OpenDocumentFile::OpenDocumentFile(
    DocumentParts document, const FileReader &files, MainView &main, EditorView &editor)
    : m_document(document)
    , m_files(files)
    , m_main(main)
    , m_editor(editor)
{
}

bool OpenDocumentFile::isDocument(const std::string &path) const
{
    const auto &current = m_document.state.currentPath;
    if (current.empty() || !m_document.file.owns(current))
        return false;
    const auto mine = m_files.stamp(current);
    return path == current || (mine && mine == m_files.stamp(path));
}

bool OpenDocumentFile::hasUnsavedChangesOf(const std::string &path) const
{
    return isDocument(path) && !m_document.file.holds(m_document.surface.Text());
}

void OpenDocumentFile::fileWritten(const std::string &path)
{
    if (!isDocument(path))
        return;
    auto opened = m_document.file.read(m_document.state.currentPath);
    if (!opened)
        return;
    const FlagGuard busy(m_document.state.busyLoadingOrSaving);
    show(opened->decoded.text);
    m_editor.setSavePoint();
    m_document.file.take(std::move(*opened));
    m_document.state.unsaved = false;
    m_main.refreshDocumentStatus();
}

void OpenDocumentFile::showLine(const std::string &path, Offset line)
{
    if (!isDocument(path))
        m_editor.openFile(path);
    if (isDocument(path))
        m_editor.goToLine(line);
}

void OpenDocumentFile::show(std::string_view text)
{
    const auto view = m_document.surface.FirstVisibleLine();
    const auto line = m_document.surface.GetLineFromChar(m_document.surface.Selection().end);
    m_document.surface.Replace({0, m_document.surface.TextLength()}, text);
    recolourInserted(m_document, {0, m_document.surface.TextLength()});
    m_document.surface.SetSelStart(startOfLine(text, line));
    m_document.surface.SetFirstVisibleLine(view);
}

} // namespace kevra
