// SPDX-License-Identifier: GPL-3.0-or-later
// Replaces text in many files: first a preview with the hits of each file, then the write, file by file. A
// file keeps its encoding and line ends; one that cannot be processed is reported and left unchanged.
#pragma once

#include "find/find_request.h"
#include "storage/file_store.h"

#include <optional>
#include <string>
#include <vector>

namespace kevra {

enum class FileOutcome {
    Added, ///< not examined yet
    Hits,
    NoHits,
    Replaced,
    ReplacedWithoutUndo, ///< its old content was not kept
    PutBack,
    Unreadable,
    Binary,
    Endless,
    Gone,
    Changed, ///< since the preview, or since the replacement
    UnsavedInEditor,
    EncodingTooSmall,
    BackupFailed,
    NotAFile,
    Denied,
    DiskFull,
    WriteFailed,
};

/// Text for the user; empty when the number of hits says enough.
[[nodiscard]] std::string outcomeText(FileOutcome outcome);

struct HitLine {
    Offset number = 0; ///< from 1
    std::string text; ///< only the beginning of a long line
};

struct ListedFile {
    std::string path;
    FileOutcome outcome = FileOutcome::Added;
    Offset hits = 0;
    std::optional<FileStamp> stamp; ///< when it was examined
    std::vector<HitLine> lines = {}; ///< the first lines with hits
};

struct MultiRequest {
    FindRequest find;
    bool backup = false; ///< keep the old content beside each changed file

    friend bool operator==(const MultiRequest &, const MultiRequest &) = default;
};

class MultiView {
public:
    virtual ~MultiView() = default;
    [[nodiscard]] virtual MultiRequest entered() const = 0;
    virtual void showFiles(const std::vector<ListedFile> &files) = 0;
    virtual void showFile(std::size_t index, const ListedFile &file) = 0;
    /// False when the user cancelled; then stop before the next file.
    virtual bool shouldContinue(std::size_t done, std::size_t total) = 0;
    virtual void showSummary(const std::string &text) = 0;
    virtual void showUndo(bool possible) = 0;
};

/// The open document and its file.
class OpenDocument {
public:
    virtual ~OpenDocument() = default;
    /// Also for another path of the same file.
    [[nodiscard]] virtual bool isDocument(const std::string &path) const = 0;
    [[nodiscard]] virtual bool hasUnsavedChangesOf(const std::string &path) const = 0;
    /// Reloads the document if this is its file.
    virtual void fileWritten(const std::string &path) = 0;
};

class MultiReplace {
public:
    static constexpr std::size_t defaultUndoBytes = std::size_t{64} << 20;

    /// Keeps at most `maxUndoBytes` bytes of old content for undoReplacement().
    MultiReplace(FileStore &files, OpenDocument &open, Messages &messages, MultiView &view,
        std::size_t maxUndoBytes = defaultUndoBytes)
        : m_store(files)
        , m_open(open)
        , m_messages(messages)
        , m_view(view)
        , m_maxUndoBytes(maxUndoBytes)
    {
    }

    /// Adds each file once.
    void addFiles(const std::vector<std::string> &paths);
    void removeFiles(const std::vector<std::size_t> &indexes);
    void clearFiles();
    /// Counts what would be replaced; writes nothing.
    void preview();
    /// Writes the replacements of the preview; without a preview of exactly these entries, only makes one.
    void replaceAll();
    /// Restores the files of the last replacement that have not been changed since.
    void undoReplacement();

private:
    /// The part of a file that the replacement changed.
    struct OldContent {
        std::string path;
        std::optional<FileStamp> stamp; ///< after the write
        std::size_t start = 0;
        std::size_t length = 0; ///< of the new content
        std::string bytes; ///< the old content
    };
    /// False when it would exceed the undo limit.
    bool keepForUndo(const std::string &path, std::string_view before, std::string_view after);
    [[nodiscard]] FileOutcome putBack(const OldContent &old);

    [[nodiscard]] bool canStart(const MultiRequest &request);
    void examineAll(const MultiRequest &request);
    void examine(ListedFile &file, const FindRequest &request) const;
    void replaceIn(ListedFile &file, const MultiRequest &request);
    [[nodiscard]] bool keepBackup(const std::string &path, std::string_view bytes);
    void reportUnsaved() const;

    FileStore &m_store;
    OpenDocument &m_open;
    Messages &m_messages;
    MultiView &m_view;
    std::vector<ListedFile> m_files;
    std::vector<OldContent> m_oldContents; ///< of the last replacement
    std::size_t m_maxUndoBytes; ///< limit for m_undoBytes
    std::size_t m_undoBytes = 0; ///< bytes in m_oldContents
    std::optional<MultiRequest> m_previewed; ///< the request whose hits the list shows
};

} // namespace kevra
