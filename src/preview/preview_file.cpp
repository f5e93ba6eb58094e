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

PreviewFile::PreviewFile(FileStore &files, BackupStore &backups, PreviewRecords &records)
    : m_files(files)
    , m_backups(backups)
    , m_records(records)
{
}

bool PreviewFile::isOurs(const std::string &path) const
{
    // A write that failed may have failed after its last step.
    return path == m_record.page && (m_stamp ? m_files.stamp(path) == m_stamp : isPage(m_record));
}

/// Also of a page by another program, whose stamp is not known here. The user's file may hold the same.
bool PreviewFile::isPage(const PreviewRecord &record) const
{
    if (record.page.empty() || (record.original && m_files.stamp(record.page) == record.original))
        return false;
    const auto bytes = m_files.read(record.page);
    return bytes && fingerprint(*bytes) == record.fingerprint;
}

/// Another program has put its page in place of this one's, and answers for what was set aside.
bool PreviewFile::takenOver() const
{
    return std::ranges::any_of(m_records.all(), [&](const PreviewRecords::Entry &entry) {
        return entry.name != m_records.own() && entry.record.page == m_record.page;
    });
}

bool PreviewFile::write(const std::string &path, std::string_view bytes)
{
    bool written = false;
    m_records.exclusively([&] {
        settleKilled();
        written = writeAlone(path, bytes);
        if (!written)
            leave();
    });
    return written;
}

bool PreviewFile::writeAlone(const std::string &path, std::string_view bytes)
{
    if (path != m_record.page)
        leave();
    // Gone before the record changes: a page that no record describes would stay for ever.
    if (isOurs(path) && !m_files.remove(path))
        return false;
    m_record.page = path;
    m_record.fingerprint = fingerprint(bytes);
    m_stamp.reset();
    takeOver(path);
    if (!setAside())
        return false;
    m_files.setHidden(path, false);
    if (m_files.writePrivate(path, bytes) != WriteOutcome::Ok)
        return false;
    m_files.setHidden(path, true);
    m_stamp = m_files.stamp(path);
    return true;
}

void PreviewFile::takeOver(const std::string &path)
{
    for (const auto &entry : m_records.all()) {
        if (entry.record.page != path || entry.name == m_records.own())
            continue;
        if (isPage(entry.record))
            std::ignore = m_files.remove(path); // tried again at the next start
        m_record.aside = entry.record.aside;
        m_record.original = entry.record.original;
        m_records.write(m_record);
        m_records.drop(entry.name);
    }
}

/// What lies in the page's place now is somebody's file.
bool PreviewFile::setAside()
{
    const auto &path = m_record.page;
    const bool isFile = m_files.fileExists(path);
    if (isFile) {
        putBack(m_record);
        m_record.original = m_files.stamp(path);
        m_record.aside.clear();
    }
    for (int number = 1; isFile && number <= mostAsideNames; ++number) {
        m_record.aside = asideName(path, number);
        if (m_files.fileExists(m_record.aside))
            continue;
        // First, so that a kill between the two leaves a file that is known.
        m_records.write(m_record);
        if (m_files.rename(path, m_record.aside))
            return true;
    }
    // Without a file a link may stand there that leads nowhere; writing would go through it.
    if (!isFile && m_record.aside.empty() && m_files.rename(path, asideName(path, 1)))
        m_record.aside = asideName(path, 1);
    m_records.write(m_record);
    return !isFile;
}

void PreviewFile::remove()
{
    if (!m_record.page.empty())
        m_records.exclusively([this] { leave(); });
}

void PreviewFile::leave()
{
    if (!m_record.page.empty() && !takenOver()) {
        // Where it cannot be removed now, the next preview or start tries again.
        if (isOurs(m_record.page) && !m_files.remove(m_record.page))
            m_records.leaveOwn();
        else
            putBack(m_record);
    }
    m_records.drop(m_records.own());
    m_record = {};
    m_stamp.reset();
}

void PreviewFile::removeLeftPages()
{
    if (!m_records.all().empty())
        m_records.exclusively([this] { settleKilled(); });
}

void PreviewFile::settleKilled()
{
    const auto entries = m_records.all();
    for (const auto &entry : entries) {
        if (entry.alive)
            continue;
        const bool takenOver = std::ranges::any_of(entries, [&](const PreviewRecords::Entry &other) {
            return other.alive && other.record.page == entry.record.page;
        });
        if (!takenOver && isPage(entry.record) && !m_files.remove(entry.record.page))
            continue;
        if (!takenOver)
            putBack(entry.record);
        m_records.drop(entry.name);
    }
}

void PreviewFile::putBack(const PreviewRecord &record)
{
    if (record.aside.empty() || m_files.stamp(record.aside) != record.original
        || m_files.rename(record.aside, record.page))
        return;
    // A document has been saved under this name meanwhile.
    if (const auto bytes = m_files.read(record.aside);
        bytes && m_backups.keep(record.page, *bytes, KeptReason::Deleted))
        std::ignore = m_files.remove(record.aside); // only a copy
}

} // namespace kevra
