// SPDX-License-Identifier: GPL-3.0-or-later
// Replacement of a text in many files: a preview with the hits of each file, then the writing, file by file.
// A file keeps its encoding and line ends; one that cannot be dealt with is reported and left as it is.
#pragma once

#include "find/find_request.h"
#include "storage/file_store.h"

#include <optional>
#include <string>
#include <vector>

namespace kevra {

enum class FileOutcome {
    Added, ///< not looked at yet
    Hits,
    NoHits,
    Replaced,
    ReplacedForGood, ///< its old content is not kept
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

/// For people; empty for what the number of hits says already.
[[nodiscard]] std::string outcomeText(FileOutcome outcome);

struct HitLine {
    Offset number = 0; ///< from 1
    std::string text; ///< of a long line its beginning
};

struct ListedFile {
    std::string path;
    FileOutcome outcome = FileOutcome::Added;
    Offset hits = 0;
    std::optional<FileStamp> stamp; ///< when it was looked at
    std::vector<HitLine> lines = {}; ///< the first of those with hits
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
    /// False when the user wants it to stop before the next file.
    virtual bool shouldContinue(std::size_t done, std::size_t total) = 0;
    virtual void showSummary(const std::string &text) = 0;
    virtual void showUndo(bool possible) = 0;
};

/// The document in the editor, as far as its file is concerned.
class OpenDocument {
public:
    virtual ~OpenDocument() = default;
    /// Also under another name.
    [[nodiscard]] virtual bool isDocument(const std::string &path) const = 0;
    [[nodiscard]] virtual bool hasUnsavedChangesOf(const std::string &path) const = 0;
    /// If it is the document's file, the document takes what is there now.
    virtual void fileWritten(const std::string &path) = 0;
};

class MultiReplace {
public:
    static constexpr std::size_t undoRoom = std::size_t{64} << 20;

    /// Keeps at most `room` bytes of old content for undoReplacement().
    MultiReplace(FileStore &files, OpenDocument &open, Messages &messages, MultiView &view,
        std::size_t room = undoRoom)
        : m_store(files)
        , m_open(open)
        , m_messages(messages)
        , m_view(view)
        , m_room(room)
    {
    }

    /// Each file once.
    void addFiles(const std::vector<std::string> &paths);
    void removeFiles(const std::vector<std::size_t> &indexes);
    void clearFiles();
    /// Counts what would be replaced; writes nothing.
    void preview();
    /// Writes what the preview has shown; without one of just these entries it only makes one.
    void replaceAll();
    /// Gives the files of the last replacement their old content, those that nobody has changed since.
    void undoReplacement();

private:
    /// What a written file was before, where it differs.
    struct OldContent {
        std::string path;
        std::optional<FileStamp> stamp; ///< after the writing
        std::size_t start = 0;
        std::size_t length = 0; ///< of what is there now
        std::string bytes; ///< that were there
    };
    /// False when there is no room left for it.
    bool keepOld(const std::string &path, std::string_view before, std::string_view after);
    [[nodiscard]] FileOutcome putBack(const OldContent &old);

    [[nodiscard]] bool canStart(const MultiRequest &request);
    void look(const MultiRequest &request);
    void lookAt(ListedFile &file, const FindRequest &request) const;
    void replaceIn(ListedFile &file, const MultiRequest &request);
    [[nodiscard]] bool keepBackup(const std::string &path, std::string_view bytes);
    void tellUnsaved() const;

    FileStore &m_store;
    OpenDocument &m_open;
    Messages &m_messages;
    MultiView &m_view;
    std::vector<ListedFile> m_files;
    std::vector<OldContent> m_old; ///< of the last replacement
    std::size_t m_room; ///< bytes, for all of m_old
    std::size_t m_kept = 0; ///< bytes in m_old
    std::optional<MultiRequest> m_previewed; ///< what the list shows the hits of
};

} // namespace kevra
