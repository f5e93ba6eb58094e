// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/preview_file.h"

#include <utility>

namespace kevra {
namespace {
constexpr int mostAsideNames = 100;
}

PreviewFile::PreviewFile(FileStore &files, BackupStore &backups)
    : m_files(files)
    , m_backups(backups)
{
}

bool PreviewFile::isOurs(const std::string &path) const
{
    return path == m_path && m_stamp && m_files.stamp(path) == m_stamp;
}

bool PreviewFile::setAside(const std::string &path)
{
    // Without a file a link may stand there that leads nowhere; writing would go through it.
    const int names = m_files.fileExists(path) ? mostAsideNames : 1;
    for (int number = 1; number <= names; ++number) {
        const auto name = path + ".aside" + (number == 1 ? "" : std::to_string(number));
        if (m_files.rename(path, name)) {
            m_aside = name;
            return true;
        }
    }
    return false;
}

bool PreviewFile::write(const std::string &path, std::string_view bytes)
{
    if (!isOurs(path)) {
        remove();
        if (!m_files.folderExists(path) && !setAside(path) && m_files.fileExists(path))
            return false;
    }
    m_path = path;
    m_files.setHidden(path, false);
    if (m_files.write(path, bytes) != Saved::Ok) {
        remove();
        return false;
    }
    m_files.setHidden(path, true);
    m_stamp = m_files.stamp(path);
    return true;
}

void PreviewFile::remove()
{
    if (isOurs(m_path))
        m_files.remove(m_path);
    putBack();
    m_path.clear();
    m_stamp.reset();
}

void PreviewFile::putBack()
{
    const auto aside = std::exchange(m_aside, {});
    if (aside.empty() || m_files.rename(aside, m_path))
        return;
    // The document has been saved under this name meanwhile.
    if (const auto bytes = m_files.read(aside); bytes && m_backups.keep(m_path, *bytes))
        m_files.remove(aside);
}

} // namespace kevra
