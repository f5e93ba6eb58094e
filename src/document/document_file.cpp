// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/document_file.h"

#include "document/file_types.h"
#include "storage/checksummed_record.h"
#include "text/utf8.h"

#include <utility>

namespace kevra {

DocumentFile::DocumentFile(FileStore &files, BackupStore &backups)
    : m_files(files)
    , m_backups(backups)
    , m_textFingerprint(fingerprint({}))
{
}

std::optional<OpenedFile> DocumentFile::read(const std::string &path, std::optional<Encoding> encoding) const
{
    OpenedFile file{path, m_files.stamp(path), {}, {}};
    auto bytes = m_files.read(path);
    if (!bytes)
        return std::nullopt;
    file.bytes = std::move(*bytes);
    file.decoded = encoding ? decodeFileAs(file.bytes, textKind(path), *encoding)
                            : decodeFrom(file.bytes, textKind(path));
    return file;
}

void DocumentFile::take(OpenedFile &&file)
{
    m_replaced.reset();
    m_paths.clear();
    adopt(std::move(file.bytes), file.decoded.text, file.decoded.format, file.path, file.stamp);
}

void DocumentFile::startNew(const TextFormat &format)
{
    m_replaced.reset();
    m_paths.clear();
    adopt({}, {}, format, {}, std::nullopt);
}

WriteOutcome DocumentFile::save(std::string_view text, const std::string &path, ReadOnlyFiles readOnly)
{
    auto file = encoded(text, path, false);
    auto foreign = keepForeignContent(path);
    const auto saved = m_files.writeDocument(path, file.bytes, readOnly, [&](std::string_view content) {
        // Skip content that is ours or already kept.
        if (isOriginal(content) || content == foreign)
            return;
        std::ignore = m_backups.keep(path, content); // the save goes on in any case
        foreign = content;
    });
    if (saved != WriteOutcome::Ok)
        return saved;
    m_replaced = path == m_path ? std::move(foreign) : std::nullopt;
    // Another program may have written after our rename; then the stamp is not that of our content.
    auto stamp = m_files.stamp(path);
    if (stamp && m_files.read(path) != file.bytes)
        stamp = FileStamp{};
    adopt(std::move(file.bytes), text, file.format, path, stamp);
    return saved;
}

EncodedFile DocumentFile::encoded(std::string_view text, std::string_view path, bool script) const
{
    return encodeFile(text, form(path, script));
}

FileForm DocumentFile::form(std::string_view path, bool script) const
{
    // New work has no extension yet, so the tool set decides.
    const auto kind = !path.empty() ? textKind(path) : script ? TextKind::Script : TextKind::Page;
    return {m_format, m_original, kind, m_wanted};
}

void DocumentFile::setFormat(const TextFormat &wanted)
{
    m_wanted.reset();
    if (wanted.encoding != m_format.encoding || wanted.mark != m_format.mark
        || wanted.lineEnds != m_format.lineEnds)
        m_wanted = wanted;
    else
        m_format = wanted;
}

bool DocumentFile::holds(std::string_view text) const
{
    return m_onDisk && !m_wanted && wasReadOrWrittenAs(text);
}

bool DocumentFile::wasReadOrWrittenAs(std::string_view text) const
{
    return mayHold(text.size()) && fingerprint(text) == m_textFingerprint;
}

WriteOutcome DocumentFile::putBack()
{
    const auto theirs = std::exchange(m_replaced, std::nullopt);
    const auto saved = m_files.writeDocument(
        m_path, theirs.value_or(""), ReadOnlyFiles::Refuse, [&](std::string_view content) {
            if (!isOriginal(content))
                std::ignore = m_backups.keep(m_path, content); // the user asked for the other version
        });
    if (saved == WriteOutcome::Ok)
        m_onDisk = false;
    else
        m_replaced = theirs;
    return saved;
}

std::string DocumentFile::decodedAs(std::string_view bytes) const
{
    const auto kind = textKind(m_path);
    return m_format.named ? decodeFileAs(bytes, kind, m_format.encoding).text : decodeFile(bytes, kind).text;
}

DiskState DocumentFile::diskState() const
{
    if (m_path.empty())
        return DiskState::Unchanged;
    const auto stamp = m_files.stamp(m_path);
    const auto isStill = [&](const std::optional<FileStamp> &known) {
        return known == stamp && known->touched == stamp->touched;
    };
    if (!stamp) {
        m_onDisk = false;
        return DiskState::Gone;
    }
    if (m_onDisk && isStill(m_stamp))
        return DiskState::Unchanged;
    if (isStill(m_foreign))
        return DiskState::Changed;
    const auto content = m_files.read(m_path);
    if (!content || !isOriginal(*content)) {
        m_foreign = stamp;
        return DiskState::Changed;
    }
    m_stamp = stamp;
    m_onDisk = true;
    return DiskState::Unchanged;
}

void DocumentFile::adopt(std::string bytes, std::string_view text, const TextFormat &format,
    const std::string &path, std::optional<FileStamp> stamp)
{
    // When the bytes equal the text, encoding reproduces them. They are not stored, so that a large document
    // is held once.
    const bool isText = format.lineEnds == LineEnds::CrLf && bytes == text && isAscii(bytes);
    m_original = std::make_shared<const std::string>(isText ? std::string() : std::move(bytes));
    m_format = format;
    m_wanted.reset();
    m_path = path;
    m_stamp = stamp;
    m_foreign.reset();
    m_onDisk = true;
    if (!path.empty())
        m_paths.insert(path);
    m_textLength = text.size();
    m_textFingerprint = fingerprint(text);
}

bool DocumentFile::isOriginal(std::string_view bytes) const
{
    return m_original->empty() ? !m_path.empty() && wasReadOrWrittenAs(bytes) : bytes == *m_original;
}

std::optional<std::string> DocumentFile::keepForeignContent(const std::string &path) const
{
    if (path == m_path ? diskState() != DiskState::Changed : !m_files.stamp(path))
        return std::nullopt;
    auto content = m_files.read(path);
    if (!content || isOriginal(*content))
        return std::nullopt;
    // The save continues even if nothing could be kept: the user asked for it.
    std::ignore = m_backups.keep(path, *content);
    return content;
}

} // namespace kevra
