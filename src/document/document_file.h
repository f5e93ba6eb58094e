// SPDX-License-Identifier: GPL-3.0-or-later
// The file behind the document: its bytes and format as they were last read or written, whether the text in
// the window still equals it, whether somebody else has changed it. One instance, for the one document.
#pragma once

#include "encoding/text_codec.h"
#include "storage/backup_store.h"
#include "storage/file_store.h"
#include "storage/recovery_record.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace kevra {

enum class DiskState { Unchanged, Changed, Gone };
enum class Existing { KeepReadOnly, Replace }; ///< whether a save may replace a read-only file

struct OpenedFile {
    std::string path;
    std::optional<FileStamp> stamp; ///< before it was read
    std::string bytes; ///< empty where they are the text
    DecodedFile decoded;
};

class DocumentFile {
public:
    DocumentFile(FileStore &files, BackupStore &backups);

    /// A file as it can be opened, in `encoding` where one is named; nothing when it cannot be read.
    [[nodiscard]] std::optional<OpenedFile> read(
        const std::string &path, std::optional<Encoding> encoding = std::nullopt) const;
    /// The document's file from now on. Its bytes are taken from `file`, its text is left there.
    void take(OpenedFile &&file);
    /// A document without a file, empty at first, to be written in `format`.
    void startNew(const TextFormat &format = {});

    /// Writes the text to `path`, which becomes the document's file when that succeeds. Content there that
    /// this program neither read nor wrote goes to the backups first.
    [[nodiscard]] Saved save(std::string_view text, const std::string &path, Existing existing);
    /// The bytes a save to `path` would write; an empty path is new work, a script when `script` says so.
    [[nodiscard]] EncodedFile encoded(std::string_view text, std::string_view path, bool script) const;

    /// What encoded() needs.
    [[nodiscard]] FileForm form(std::string_view path, bool script) const;

    /// Whether this document was read from or written to that path.
    [[nodiscard]] bool owns(const std::string &path) const { return m_paths.contains(path); }
    /// Whether the text is what the file holds, in the format wanted; costs a pass over a text of the same
    /// length.
    [[nodiscard]] bool holds(std::string_view text) const;
    /// Whether a text of this length can be what the file holds.
    [[nodiscard]] bool mayHold(std::size_t length) const { return length == m_textLength; }
    /// Looks at the content when anything about the file has changed: the same bytes are no change.
    [[nodiscard]] DiskState diskState() const;
    [[nodiscard]] std::optional<FileStamp> stampOnDisk() const { return m_files.stamp(m_path); }
    /// The file's state when it last held what was read or written; a save changes it.
    [[nodiscard]] std::optional<FileStamp> stampWhenOurs() const { return m_stamp; }
    /// Whether the text is what was last read or written, wherever the file is now.
    [[nodiscard]] bool wasReadOrWrittenAs(std::string_view text) const;
    /// The bytes of another program that the last save took the place of.
    [[nodiscard]] const std::optional<std::string> &replacedContent() const { return m_replaced; }
    void forgetReplaced() { m_replaced.reset(); }
    /// Writes them back; the document's text is in no file afterwards.
    [[nodiscard]] Saved putBack();
    /// The text of such bytes, as opening this file would show it.
    [[nodiscard]] std::string decodedAs(std::string_view bytes) const;
    /// How the next save writes the text, as far as it fits.
    [[nodiscard]] const TextFormat &format() const { return m_wanted ? *m_wanted : m_format; }
    void setFormat(const TextFormat &wanted);
    /// Last read or written; empty for new work.
    [[nodiscard]] const std::string &path() const { return m_path; }

private:
    void adopt(std::string bytes, std::string_view text, const TextFormat &format, const std::string &path,
        std::optional<FileStamp> stamp);
    /// Whether these are the bytes that were last read or written.
    [[nodiscard]] bool isOriginal(std::string_view bytes) const;
    /// What was kept.
    [[nodiscard]] std::optional<std::string> keepForeignContent(const std::string &path) const;

    FileStore &m_files;
    BackupStore &m_backups;
    /// Empty when the text itself tells the bytes.
    std::shared_ptr<const std::string> m_original = std::make_shared<const std::string>();
    TextFormat m_format; ///< of the bytes
    std::optional<TextFormat> m_wanted;
    std::string m_path; ///< last read or written; empty for new work
    mutable std::optional<FileStamp> m_stamp;
    mutable std::optional<FileStamp> m_foreign; ///< a state of the file whose content is not ours
    mutable bool m_onDisk = true; ///< as far as it has been looked at
    std::optional<std::string> m_replaced;
    std::set<std::string> m_paths;
    std::size_t m_textLength = 0;
    std::uint64_t m_textFingerprint = 0;
};

} // namespace kevra
