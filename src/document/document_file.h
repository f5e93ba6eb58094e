// SPDX-License-Identifier: GPL-3.0-or-later
// The document's file: its bytes and format as last read or written, whether the text still equals it, and
// whether another program has changed it. One instance per document.
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

struct OpenedFile {
    std::string path;
    std::optional<FileStamp> stamp; ///< taken before it was read
    std::string bytes; ///< empty when they equal the text
    DecodedFile decoded;
};

class DocumentFile {
public:
    DocumentFile(FileStore &files, BackupStore &backups);

    /// Reads and decodes a file, as `encoding` if given; nothing when it cannot be read.
    [[nodiscard]] std::optional<OpenedFile> read(
        const std::string &path, std::optional<Encoding> encoding = std::nullopt) const;
    /// Makes it the document's file. Takes the bytes out of `file` and leaves the text.
    void take(OpenedFile &&file);
    /// Starts an empty document without a file, to be written in `format`.
    void startNew(const TextFormat &format = {});

    /// Writes the text to `path`, which becomes the document's file on success. Content there that this
    /// program neither read nor wrote is backed up first.
    [[nodiscard]] WriteOutcome save(std::string_view text, const std::string &path, ReadOnlyFiles readOnly);
    /// The bytes that a save to `path` would write. An empty path means new work, which is a script if
    /// `script`.
    [[nodiscard]] EncodedFile encoded(std::string_view text, std::string_view path, bool script) const;

    /// The form in which encoded() writes.
    [[nodiscard]] FileForm form(std::string_view path, bool script) const;

    /// Whether this document was read from or written to that path.
    [[nodiscard]] bool owns(const std::string &path) const { return m_paths.contains(path); }
    /// Whether the file holds this text in the requested format. Costs a pass over the text if the lengths
    /// match.
    [[nodiscard]] bool holds(std::string_view text) const;
    /// Whether a text of this length can be what the file holds.
    [[nodiscard]] bool mayHold(std::size_t length) const { return length == m_textLength; }
    /// Compares the content when the file's stamp has changed; the same bytes count as unchanged.
    [[nodiscard]] DiskState diskState() const;
    [[nodiscard]] std::optional<FileStamp> stampOnDisk() const { return m_files.stamp(m_path); }
    /// The stamp that the file had when it last held what was read or written.
    [[nodiscard]] std::optional<FileStamp> stampWhenOurs() const { return m_stamp; }
    /// Whether the text is what was last read or written, even if the file has changed or gone since.
    [[nodiscard]] bool wasReadOrWrittenAs(std::string_view text) const;
    /// Another program's bytes that the last save replaced.
    [[nodiscard]] const std::optional<std::string> &replacedContent() const { return m_replaced; }
    void forgetReplaced() { m_replaced.reset(); }
    /// Writes them back; the document's text is then in no file.
    [[nodiscard]] WriteOutcome putBack();
    /// Decodes bytes as opening this file would.
    [[nodiscard]] std::string decodedAs(std::string_view bytes) const;
    /// The format of the next save, if it can encode the text.
    [[nodiscard]] const TextFormat &format() const { return m_wanted ? *m_wanted : m_format; }
    void setFormat(const TextFormat &wanted);
    /// Last read or written; empty for new work.
    [[nodiscard]] const std::string &path() const { return m_path; }

private:
    void adopt(std::string bytes, std::string_view text, const TextFormat &format, const std::string &path,
        std::optional<FileStamp> stamp);
    /// Whether these are the bytes that were last read or written.
    [[nodiscard]] bool isOriginal(std::string_view bytes) const;
    /// Backs up content at `path` that is not ours, and returns it.
    [[nodiscard]] std::optional<std::string> keepForeignContent(const std::string &path) const;

    FileStore &m_files;
    BackupStore &m_backups;
    /// Empty when the bytes can be rebuilt from the text.
    std::shared_ptr<const std::string> m_original = std::make_shared<const std::string>();
    TextFormat m_format; ///< of the bytes
    std::optional<TextFormat> m_wanted;
    std::string m_path; ///< last read or written; empty for new work
    mutable std::optional<FileStamp> m_stamp;
    mutable std::optional<FileStamp> m_foreign; ///< a stamp known to belong to foreign content
    mutable bool m_onDisk = true; ///< as of the last check
    std::optional<std::string> m_replaced;
    std::set<std::string> m_paths;
    std::size_t m_textLength = 0;
    std::uint64_t m_textFingerprint = 0;
};

} // namespace kevra
