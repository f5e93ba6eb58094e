// SPDX-License-Identifier: GPL-3.0-or-later
// The open document as the commands that replace text in files see it.
#pragma once

#include "desktop/main_view.h"
#include "document/document_parts.h"
#include "find/multi_replace.h"

namespace kevra {

/// The editor with the open document.
class EditorView {
public:
    virtual ~EditorView() = default;
    virtual void setSavePoint() = 0; ///< marks the current text as saved
    /// Opens a file of any type, with the questions of the open dialog.
    virtual void openFile(const std::string &path) = 0;
    virtual void goToLine(Offset line) = 0; ///< from 1; of the last line if there are fewer
};

class OpenDocumentFile : public OpenDocument {
public:
    OpenDocumentFile(DocumentParts document, const FileReader &files, MainView &main, EditorView &editor);

    [[nodiscard]] bool isDocument(const std::string &path) const override;
    [[nodiscard]] bool hasUnsavedChangesOf(const std::string &path) const override;
    /// Replaces the text as one undo step; caret and first visible line stay on their lines.
    void fileWritten(const std::string &path) override;
    /// Shows a line, from 1, of a file; one that is not the document is opened, if the user lets it.
    void showLine(const std::string &path, Offset line);

private:
    void show(std::string_view text);

    DocumentParts m_document;
    const FileReader &m_files;
    MainView &m_main;
    EditorView &m_editor;
};

} // namespace kevra
