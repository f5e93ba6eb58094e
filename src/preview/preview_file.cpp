// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/preview_file.h"

#include "storage/checksummed_record.h"

#include <algorithm>

namespace kevra {
namespace {
constexpr int mostAsideNames = 100;

std::string asideName(const std::string &path, int number)
{
    return path + ".aside" + (number == 1 ? "" : std::to_string(number));
}
} // namespace

PreviewFile::PreviewFile(FileStore &files, BackupStore &backups, PageNotes &notes)
    : m_files(files)
    , m_backups(backups)
    , m_notes(notes)
{
}

bool PreviewFile::isOurs(const std::string &path) const
{
    // A write that failed may have failed after its last step.
    return path == m_note.page && (m_stamp ? m_files.stamp(path) == m_stamp : isPage(m_note));
}

/// Also of a page by another program, whose stamp is not known here. The user's file may hold the same.
bool PreviewFile::isPage(const PageNote &note) const
{
    if (note.page.empty() || (note.original && m_files.stamp(note.page) == note.original))
        return false;
    const auto bytes = m_files.read(note.page);
    return bytes && fingerprint(*bytes) == note.fingerprint;
}

/// Another program has put its page in place of this one's, and answers for what was set aside.
bool PreviewFile::takenOver() const
{
    return std::ranges::any_of(m_notes.all(), [&](const PageNotes::Entry &entry) {
        return entry.name != m_notes.own() && entry.note.page == m_note.page;
    });
}

bool PreviewFile::write(const std::string &path, std::string_view bytes)
{
    bool written = false;
    m_notes.exclusively([&] {
        settleKilled();
        written = writeAlone(path, bytes);
        if (!written)
            leave();
    });
    return written;
}

bool PreviewFile::writeAlone(const std::string &path, std::string_view bytes)
{
    if (path != m_note.page)
        leave();
    // Gone before the note changes: a page that no note describes would stay for ever.
    if (isOurs(path) && !m_files.remove(path))
        return false;
    m_note.page = path;
    m_note.fingerprint = fingerprint(bytes);
    m_stamp.reset();
    takeOver(path);
    if (!setAside())
        return false;
    m_files.setHidden(path, false);
    if (m_files.writePrivate(path, bytes) != Saved::Ok)
        return false;
    m_files.setHidden(path, true);
    m_stamp = m_files.stamp(path);
    return true;
}

void PreviewFile::takeOver(const std::string &path)
{
    for (const auto &entry : m_notes.all()) {
        if (entry.note.page != path || entry.name == m_notes.own())
            continue;
        if (isPage(entry.note))
            std::ignore = m_files.remove(path); // tried again at the next start
        m_note.aside = entry.note.aside;
        m_note.original = entry.note.original;
        m_notes.write(m_note);
        m_notes.drop(entry.name);
    }
}

/// What lies in the page's place now is somebody's file.
bool PreviewFile::setAside()
{
    const auto &path = m_note.page;
    const bool isFile = m_files.fileExists(path);
    if (isFile) {
        putBack(m_note);
        m_note.original = m_files.stamp(path);
        m_note.aside.clear();
    }
    for (int number = 1; isFile && number <= mostAsideNames; ++number) {
        m_note.aside = asideName(path, number);
        if (m_files.fileExists(m_note.aside))
            continue;
        // First, so that a kill between the two leaves a file that is known.
        m_notes.write(m_note);
        if (m_files.rename(path, m_note.aside))
            return true;
    }
    // Without a file a link may stand there that leads nowhere; writing would go through it.
    if (!isFile && m_note.aside.empty() && m_files.rename(path, asideName(path, 1)))
        m_note.aside = asideName(path, 1);
    m_notes.write(m_note);
    return !isFile;
}

void PreviewFile::remove()
{
    if (!m_note.page.empty())
        m_notes.exclusively([this] { leave(); });
}

void PreviewFile::leave()
{
    if (!m_note.page.empty() && !takenOver()) {
        // Where it cannot be removed now, the next preview or start tries again.
        if (isOurs(m_note.page) && !m_files.remove(m_note.page))
            m_notes.leaveOwn();
        else
            putBack(m_note);
    }
    m_notes.drop(m_notes.own());
    m_note = {};
    m_stamp.reset();
}

void PreviewFile::removeLeftPages()
{
    if (!m_notes.all().empty())
        m_notes.exclusively([this] { settleKilled(); });
}

void PreviewFile::settleKilled()
{
    const auto entries = m_notes.all();
    for (const auto &entry : entries) {
        if (entry.alive)
            continue;
        const bool takenOver = std::ranges::any_of(entries,
            [&](const PageNotes::Entry &other) { return other.alive && other.note.page == entry.note.page; });
        if (!takenOver && isPage(entry.note) && !m_files.remove(entry.note.page))
            continue;
        if (!takenOver)
            putBack(entry.note);
        m_notes.drop(entry.name);
    }
}

void PreviewFile::putBack(const PageNote &note)
{
    if (note.aside.empty() || m_files.stamp(note.aside) != note.original
        || m_files.rename(note.aside, note.page))
        return;
    // A document has been saved under this name meanwhile.
    if (const auto bytes = m_files.read(note.aside);
        bytes && m_backups.keep(note.page, *bytes, KeptReason::Deleted))
        std::ignore = m_files.remove(note.aside); // only a copy
}

} // namespace kevra
