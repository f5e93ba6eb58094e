// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/multi_replace.h"

#include "document/file_types.h"
#include "encoding/text_codec.h"
#include "find/hit_finder.h"
#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>
#include <variant>

namespace kevra {
namespace {

constexpr int maxBackups = 1000;
constexpr std::size_t maxLines = 200; ///< of one file
constexpr std::size_t maxLineBytes = 200;

struct OutcomeText {
    FileOutcome outcome;
    std::string_view text;
};

constexpr std::array outcomeTexts{
    OutcomeText{FileOutcome::Replaced, "replaced"},
    OutcomeText{FileOutcome::ReplacedWithoutUndo, "replaced, and cannot be put back"},
    OutcomeText{FileOutcome::PutBack, "put back"},
    OutcomeText{FileOutcome::Unreadable, "cannot be read"},
    OutcomeText{FileOutcome::Binary, "is not a text file"},
    OutcomeText{FileOutcome::Endless, "is too big to process further"},
    OutcomeText{FileOutcome::Gone, "is no longer there"},
    OutcomeText{FileOutcome::Changed, "has changed in the meantime"},
    OutcomeText{FileOutcome::UnsavedInEditor, "has unsaved changes in the editor"},
    OutcomeText{FileOutcome::EncodingTooSmall, "its encoding cannot hold the replacement"},
    OutcomeText{FileOutcome::BackupFailed, "the backup could not be written"},
    OutcomeText{FileOutcome::NotAFile, "is not a regular file"},
    OutcomeText{FileOutcome::Denied, "is write-protected"},
    OutcomeText{FileOutcome::DiskFull, "the disk is full"},
    OutcomeText{FileOutcome::WriteFailed, "could not be written"},
};

FileOutcome outcomeOf(WriteOutcome saved)
{
    switch (saved) {
    case WriteOutcome::Ok:
        return FileOutcome::Replaced;
    case WriteOutcome::NotAFile:
        return FileOutcome::NotAFile;
    case WriteOutcome::Denied:
        return FileOutcome::Denied;
    case WriteOutcome::DiskFull:
        return FileOutcome::DiskFull;
    case WriteOutcome::Failed:
    case WriteOutcome::Torn:
        break;
    }
    return FileOutcome::WriteFailed;
}

bool isBinary(std::string_view bytes, const TextFormat &format)
{
    return unitSize(format.encoding) == 1 && bytes.find('\0') != std::string_view::npos;
}

std::string counted(Offset number, std::string_view thing)
{
    return std::to_string(number) + " " + std::string(thing) + (number == 1 ? "" : "s");
}

/// A file's content and its planned replacement.
struct Change {
    std::string bytes;
    DecodedFile decoded;
    Replacement replacement;
};

std::variant<Change, FileOutcome> changeOf(
    const FileReader &files, const std::string &path, const FindRequest &request)
{
    auto bytes = files.read(path);
    if (!bytes)
        return FileOutcome::Unreadable;
    auto decoded = decodeFile(*bytes, textKind(path));
    if (isBinary(*bytes, decoded.format))
        return FileOutcome::Binary;
    auto result = HitFinder(request).replacedAll(decoded.text);
    if (std::holds_alternative<Endless>(result))
        return FileOutcome::Endless;
    return Change{std::move(*bytes), std::move(decoded), std::get<Replacement>(std::move(result))};
}

std::vector<HitLine> linesOf(std::string_view text, const std::vector<TextRange> &hits)
{
    std::vector<HitLine> lines;
    Offset number = 1;
    std::size_t lineStart = 0;
    for (const auto &hit : hits) {
        const auto at = static_cast<std::size_t>(hit.start);
        for (auto end = text.find('\n', lineStart); end < at; end = text.find('\n', lineStart)) {
            lineStart = end + 1;
            ++number;
        }
        if (!lines.empty() && lines.back().number == number)
            continue;
        if (lines.size() == maxLines)
            break;
        const auto line = text.substr(lineStart, text.find('\r', lineStart) - lineStart);
        lines.push_back({number, std::string(wholeCharacters(line, maxLineBytes))});
    }
    return lines;
}

std::string applied(const Change &change)
{
    const auto start = static_cast<std::size_t>(change.replacement.range.start);
    const auto length = static_cast<std::size_t>(change.replacement.range.length());
    return std::string(change.decoded.text).replace(start, length, change.replacement.text);
}

struct ReplaceCounts {
    void add(const ListedFile &file)
    {
        const bool kept = file.outcome == FileOutcome::Replaced;
        const bool replaced = kept || file.outcome == FileOutcome::ReplacedWithoutUndo;
        withoutUndo += replaced && !kept;
        hits += replaced ? file.hits : 0;
        files += replaced;
        skipped += !replaced && file.outcome != FileOutcome::NoHits;
    }

    [[nodiscard]] std::string summary() const
    {
        return counted(hits, "replacement") + " in " + counted(files, "file") + ", "
            + counted(skipped, "file") + " left out."
            + (withoutUndo > 0 ? " " + counted(withoutUndo, "file") + " cannot be put back: too much to keep."
                               : "");
    }

    Offset hits = 0;
    Offset files = 0;
    Offset skipped = 0;
    Offset withoutUndo = 0;
};

} // namespace

std::string outcomeText(FileOutcome outcome)
{
    const auto row = std::ranges::find(outcomeTexts, outcome, &OutcomeText::outcome);
    return row == outcomeTexts.end() ? std::string() : std::string(row->text);
}

void MultiReplace::addFiles(const std::vector<std::string> &paths)
{
    std::set<std::string> known;
    for (const auto &file : m_files)
        known.insert(file.path);
    for (const auto &path : paths)
        if (known.insert(path).second)
            m_files.push_back({.path = path, .stamp = {}});
    m_previewed.reset();
    m_view.showFiles(m_files);
    m_view.showSummary(counted(std::ssize(m_files), "file"));
}

void MultiReplace::removeFiles(const std::vector<std::size_t> &indexes)
{
    const std::set<std::size_t> gone(indexes.begin(), indexes.end());
    std::vector<ListedFile> kept;
    for (std::size_t i = 0; i < m_files.size(); ++i)
        if (!gone.contains(i))
            kept.push_back(std::move(m_files[i]));
    m_files = std::move(kept);
    m_view.showFiles(m_files);
    m_view.showSummary(counted(std::ssize(m_files), "file"));
}

void MultiReplace::clearFiles()
{
    m_files.clear();
    m_previewed.reset();
    m_view.showFiles(m_files);
    m_view.showSummary({});
}

bool MultiReplace::canStart(const MultiRequest &request)
{
    if (!hasText(request.find, m_messages) || !isUsable(HitFinder(request.find), m_messages))
        return false;
    if (m_files.empty())
        m_messages.stop("No files have been chosen.");
    return !m_files.empty();
}

void MultiReplace::examine(ListedFile &file, const FindRequest &request) const
{
    file.hits = 0;
    file.lines.clear();
    // Taken before reading, so that a change in between is noticed when writing.
    file.stamp = m_store.stamp(file.path);
    if (!file.stamp) {
        file.outcome = FileOutcome::Gone;
        return;
    }
    if (m_open.hasUnsavedChangesOf(file.path)) {
        file.outcome = FileOutcome::UnsavedInEditor;
        return;
    }
    const auto change = changeOf(m_store, file.path, request);
    if (const auto *outcome = std::get_if<FileOutcome>(&change)) {
        file.outcome = *outcome;
        return;
    }
    file.hits = std::get<Change>(change).replacement.count;
    file.outcome = file.hits > 0 ? FileOutcome::Hits : FileOutcome::NoHits;
    const auto &text = std::get<Change>(change).decoded.text;
    if (file.hits > 0)
        file.lines = linesOf(text, HitFinder(request).all(text));
}

void MultiReplace::reportUnsaved() const
{
    for (const auto &file : m_files)
        if (file.outcome == FileOutcome::UnsavedInEditor)
            m_messages.stop("\"" + file.path
                + "\" is open in the editor and has unsaved changes. Save it before replacing in it.");
}

void MultiReplace::examineAll(const MultiRequest &request)
{
    m_previewed.reset();
    Offset hits = 0;
    Offset files = 0;
    Offset skipped = 0;
    std::int64_t bytes = 0;
    for (std::size_t i = 0; i < m_files.size(); ++i) {
        if (!m_view.shouldContinue(i, m_files.size()))
            return m_view.showSummary("Cancelled. Nothing has been written.");
        auto &file = m_files[i];
        examine(file, request.find);
        m_view.showFile(i, file);
        hits += file.hits;
        files += file.hits > 0;
        bytes += file.hits > 0 ? file.stamp->size : 0;
        skipped += !outcomeText(file.outcome).empty();
    }
    m_view.shouldContinue(m_files.size(), m_files.size());
    m_previewed = request;
    m_view.showSummary(counted(hits, "hit") + " in " + counted(files, "file") + ", "
        + counted(skipped, "file") + " left out. Nothing has been written yet."
        + (std::cmp_greater(bytes, m_maxUndoBytes)
                ? " Not every file of this size can be put back: Keep a backup keeps them."
                : ""));
    reportUnsaved();
}

void MultiReplace::preview()
{
    const auto request = m_view.entered();
    if (canStart(request))
        examineAll(request);
}

bool MultiReplace::keepBackup(const std::string &path, std::string_view bytes)
{
    auto name = path + ".bak";
    for (int i = 2; m_store.stamp(name) || m_store.folderExists(name); ++i) {
        if (i > maxBackups)
            return false;
        name = path + ".bak" + std::to_string(i);
    }
    return m_store.writeBackup(path, name, bytes) == WriteOutcome::Ok;
}

void MultiReplace::replaceIn(ListedFile &file, const MultiRequest &request)
{
    const auto fail = [&](FileOutcome outcome) { file.outcome = outcome; };
    const auto now = m_store.stamp(file.path);
    if (!now)
        return fail(FileOutcome::Gone);
    if (now != file.stamp)
        return fail(FileOutcome::Changed);
    if (m_open.hasUnsavedChangesOf(file.path))
        return fail(FileOutcome::UnsavedInEditor);
    const auto made = changeOf(m_store, file.path, request.find);
    if (const auto *outcome = std::get_if<FileOutcome>(&made))
        return fail(*outcome);
    const auto &change = std::get<Change>(made);
    const auto encoded
        = encodeFile(applied(change), change.decoded.format, change.bytes, textKind(file.path));
    if (encoded.format.encoding != change.decoded.format.encoding)
        return fail(FileOutcome::EncodingTooSmall);
    if (m_store.stamp(file.path) != file.stamp)
        return fail(FileOutcome::Changed);
    if (request.backup && !keepBackup(file.path, change.bytes))
        return fail(FileOutcome::BackupFailed);
    file.outcome = outcomeOf(m_store.write(file.path, encoded.bytes));
    if (file.outcome != FileOutcome::Replaced)
        return;
    if (!keepForUndo(file.path, change.bytes, encoded.bytes))
        file.outcome = FileOutcome::ReplacedWithoutUndo;
    m_open.fileWritten(file.path);
}

bool MultiReplace::keepForUndo(const std::string &path, std::string_view before, std::string_view after)
{
    const auto start = static_cast<std::size_t>(std::ranges::mismatch(before, after).in1 - before.begin());
    std::size_t same = 0;
    while (same < std::min(before.size(), after.size()) - start
        && before[before.size() - same - 1] == after[after.size() - same - 1])
        ++same;
    const auto differing = before.substr(start, before.size() - same - start);
    if (differing.size() > m_maxUndoBytes - m_undoBytes)
        return false;
    m_undoBytes += differing.size();
    m_oldContents.push_back(
        {path, m_store.stamp(path), start, after.size() - same - start, std::string(differing)});
    return true;
}

FileOutcome MultiReplace::putBack(const OldContent &old)
{
    const auto now = m_store.stamp(old.path);
    if (!now)
        return FileOutcome::Gone;
    if (now != old.stamp)
        return FileOutcome::Changed;
    if (m_open.hasUnsavedChangesOf(old.path))
        return FileOutcome::UnsavedInEditor;
    auto bytes = m_store.read(old.path);
    if (!bytes)
        return FileOutcome::Unreadable;
    const auto outcome = outcomeOf(m_store.write(old.path, bytes->replace(old.start, old.length, old.bytes)));
    if (outcome != FileOutcome::Replaced)
        return outcome;
    m_open.fileWritten(old.path);
    return FileOutcome::PutBack;
}

void MultiReplace::undoReplacement()
{
    Offset done = 0;
    m_undoBytes = 0;
    for (const auto &old : std::exchange(m_oldContents, {})) {
        const auto outcome = putBack(old);
        done += outcome == FileOutcome::PutBack;
        const auto listed = std::ranges::find(m_files, old.path, &ListedFile::path);
        if (listed == m_files.end())
            continue;
        listed->outcome = outcome;
        m_view.showFile(static_cast<std::size_t>(listed - m_files.begin()), *listed);
        if (outcome == FileOutcome::UnsavedInEditor)
            m_oldContents.push_back(old);
    }
    m_previewed.reset();
    m_view.showUndo(!m_oldContents.empty());
    m_view.showSummary(counted(done, "file") + " put back.");
    reportUnsaved();
}

void MultiReplace::replaceAll()
{
    const auto request = m_view.entered();
    if (!canReplaceAll(request.find, m_messages) || !canStart(request))
        return;
    if (!m_previewed || m_previewed->find != request.find)
        return examineAll(request);
    if (!wantsReplaceAll(request.find, m_messages))
        return;
    m_previewed.reset();
    m_oldContents.clear();
    m_undoBytes = 0;
    m_view.showSummary("Replacing...");
    ReplaceCounts counts;
    bool cancelled = false;
    for (std::size_t i = 0; i < m_files.size(); ++i) {
        cancelled = !m_view.shouldContinue(i, m_files.size());
        if (cancelled)
            break;
        auto &file = m_files[i];
        if (file.outcome == FileOutcome::Hits)
            replaceIn(file, request);
        m_view.showFile(i, file);
        counts.add(file);
    }
    if (!cancelled)
        m_view.shouldContinue(m_files.size(), m_files.size());
    m_view.showUndo(!m_oldContents.empty());
    m_view.showSummary((cancelled ? "Cancelled. " : "") + counts.summary());
}

} // namespace kevra
