// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/document_file.h"

#include "document/file_types.h"
#include "encoding/charset.h"
#include "storage/checksummed_record.h"

namespace kevra {

DocumentFile::DocumentFile(FileStore &files, BackupStore &backups)
    : m_files(files)
    , m_backups(backups)
    , m_textFingerprint(fingerprint({}))
{
}

std::optional<OpenedFile> DocumentFile::read(const std::string &path) const
{
    OpenedFile file{path, m_files.stamp(path), {}, {}};
    auto bytes = m_files.read(path);
    if (!bytes)
        return std::nullopt;
    file.bytes = std::move(*bytes);
    file.decoded = decodeFrom(file.bytes, textKind(path));
    return file;
}

void DocumentFile::take(OpenedFile &&file)
{
    m_paths.clear();
    adopt(std::move(file.bytes), file.decoded.text, file.decoded.format, file.path, file.stamp);
}

void DocumentFile::startNew(const TextFormat &format)
{
    m_paths.clear();
    adopt({}, {}, format, {}, std::nullopt);
}

Saved DocumentFile::save(std::string_view text, const std::string &path, Existing existing)
{
    auto file = encoded(text, path, false);
    keepForeignContent(path);
    const auto saved
        = existing == Existing::Replace ? m_files.replace(path, file.bytes) : m_files.write(path, file.bytes);
    if (saved == Saved::Ok)
        adopt(std::move(file.bytes), text, file.format, path, m_files.stamp(path));
    return saved;
}

EncodedFile DocumentFile::encoded(std::string_view text, std::string_view path, bool script) const
{
    const auto from = snapshot(path, script);
    return encodeFile(text, from.format, *from.original, from.kind);
}

FileSnapshot DocumentFile::snapshot(std::string_view path, bool script) const
{
    // New work has no type yet: the tool set it is written with tells.
    const auto kind = !path.empty() ? textKind(path) : script ? TextKind::Script : TextKind::Page;
    return {m_format, m_original, kind};
}

bool DocumentFile::holds(std::string_view text) const
{
    return mayHold(text.size()) && fingerprint(text) == m_textFingerprint;
}

DiskState DocumentFile::diskState() const
{
    if (m_path.empty())
        return DiskState::Unchanged;
    const auto stamp = m_files.stamp(m_path);
    if (!stamp)
        return DiskState::Gone;
    return stamp == m_stamp ? DiskState::Unchanged : DiskState::Changed;
}

void DocumentFile::adopt(std::string bytes, std::string_view text, const TextFormat &format,
    const std::string &path, std::optional<FileStamp> stamp)
{
    // Bytes that are the text itself come out of it again, edited or not; a large document need not be held
    // twice for them.
    const bool isText = format.lineEnds == LineEnds::CrLf && bytes == text && isAscii(bytes);
    m_original = std::make_shared<const std::string>(isText ? std::string() : std::move(bytes));
    m_format = format;
    m_path = path;
    m_stamp = stamp;
    if (!path.empty())
        m_paths.insert(path);
    m_textLength = text.size();
    m_textFingerprint = fingerprint(text);
}

bool DocumentFile::isOriginal(std::string_view bytes) const
{
    return m_original->empty() ? !m_path.empty() && holds(bytes) : bytes == *m_original;
}

void DocumentFile::keepForeignContent(const std::string &path) const
{
    const auto stamp = m_files.stamp(path);
    if (!stamp || (path == m_path && stamp == m_stamp))
        return;
    // A save goes on when nothing can be kept: the user asked for it.
    if (const auto there = m_files.read(path); there && !isOriginal(*there))
        m_backups.keep(path, *there);
}

} // namespace kevra
