// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/file_store.h"

#include <functional>
#include <map>
#include <set>

namespace kevra {

/// Files in memory. Every write to a path in `refused` has that outcome and leaves the file unchanged.
class FakeFileStore : public FileStore {
public:
    bool fileExists(const std::string &path) const override { return files.contains(path); }
    bool folderExists(const std::string &path) const override { return folders.contains(path); }
    std::optional<FileStamp> stamp(const std::string &path) const override
    {
        const auto it = files.find(path);
        if (it == files.end())
            return std::nullopt;
        const auto written = writes.find(path);
        return FileStamp{written == writes.end() ? 0 : written->second,
            static_cast<std::int64_t>(it->second.size()), std::hash<std::string>{}(it->second)};
    }
    std::optional<std::string> read(const std::string &path) const override
    {
        const auto it = files.find(path);
        return it == files.end() || unreadable.contains(path) ? std::nullopt : std::optional(it->second);
    }
    WriteOutcome write(const std::string &path, std::string_view bytes) override
    {
        if (const auto it = refused.find(path); it != refused.end())
            return it->second;
        if (readOnly.contains(path))
            return WriteOutcome::Denied;
        files[path] = bytes;
        ++writes[path];
        return failsLate.contains(path) ? WriteOutcome::Failed : WriteOutcome::Ok;
    }
    WriteOutcome writeDocument(const std::string &path, std::string_view bytes, ReadOnlyFiles protectedFiles,
        const Replaced &replaced) override
    {
        if (const auto content = read(path); content && replaced)
            replaced(*content);
        if (protectedFiles == ReadOnlyFiles::Replace)
            readOnly.erase(path);
        return write(path, bytes);
    }
    std::string safetyCopy() const override { return {}; }
    WriteOutcome writeBackup(const std::string &, const std::string &path, std::string_view bytes) override
    {
        return write(path, bytes);
    }
    WriteOutcome writePrivate(const std::string &path, std::string_view bytes) override
    {
        return write(path, bytes);
    }
    bool remove(const std::string &path) override
    {
        if (kept.contains(path))
            return false;
        files.erase(path);
        return true;
    }
    bool rename(const std::string &from, const std::string &to) override
    {
        if (!files.contains(from) || files.contains(to))
            return false;
        files[to] = files[from];
        writes[to] = writes[from];
        files.erase(from);
        return true;
    }
    void setHidden(const std::string &path, bool hide) override
    {
        if (hide)
            hidden.insert(path);
        else
            hidden.erase(path);
    }

    std::map<std::string, std::string> files;
    std::set<std::string> folders;
    std::set<std::string> unreadable;
    std::set<std::string> hidden;
    std::map<std::string, WriteOutcome> refused;
    std::set<std::string> failsLate; ///< written, but reported as failed
    std::set<std::string> kept; ///< cannot be removed
    std::set<std::string> readOnly; ///< written by writeDocument() only, when it is told to
    std::map<std::string, int> writes;
};

} // namespace kevra
