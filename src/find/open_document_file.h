// SPDX-License-Identifier: GPL-3.0-or-later
// The open document as the commands that replace text in files see it.
#pragma once

#include "desktop/main_view.h"
#include "document/document_parts.h"
#include "find/multi_replace.h"

#include <functional>

namespace kevra {

class OpenDocumentFile : public OpenDocument {
public:
    /// `setSavePoint` marks the current text as saved.
    OpenDocumentFile(
        DocumentParts document, FileStore &files, MainView &main, std::function<void()> setSavePoint);

    [[nodiscard]] bool isDocument(const std::string &path) const override;
    [[nodiscard]] bool hasUnsavedChangesOf(const std::string &path) const override;
    /// Replaces the text as one undo step; caret and first visible line stay on their lines.
    void fileWritten(const std::string &path) override;

private:
    void show(std::string_view text);

    DocumentParts m_document;
    FileStore &m_files;
    MainView &m_main;
    std::function<void()> m_setSavePoint;
};

} // namespace kevra
