// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/file_watch_posix.h"

#include "storage/file_handle_posix.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <optional>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <tuple>

namespace kevra {
namespace {

constexpr int pollInterval = 1000; ///< milliseconds
constexpr int maxSteps = 10; ///< after which a change is reported although the writer is still busy
constexpr int settleTime = 150; ///< milliseconds between the steps of a writer

struct Stamp {
    bool exists = false;
    std::uint64_t identity = 0;
    std::int64_t size = 0;
    std::int64_t modified = 0; ///< nanoseconds since 1970
    std::int64_t touched = 0; ///< nanoseconds since 1970

    friend bool operator==(const Stamp &, const Stamp &) = default;
};

Stamp stampOf(const std::string &path)
{
    struct stat status { };
    if (path.empty() || ::stat(path.c_str(), &status) != 0)
        return {};
    const auto nanoseconds
        = [](const timespec &time) { return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec; };
    return {true, status.st_ino, status.st_size, nanoseconds(status.st_mtim), nanoseconds(status.st_ctim)};
}

void drain(int descriptor)
{
    alignas(inotify_event) std::array<char, 4096> events;
    while (::read(descriptor, events.data(), events.size()) > 0) { }
}

} // namespace

struct FileWatch::Shared {
    explicit Shared(std::function<void()> call)
        : changed(std::move(call))
        , events(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK))
        , wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    {
    }

    /// The path to watch; nothing once the watch has ended.
    std::optional<std::string> watchedPath()
    {
        const std::lock_guard lock(mutex);
        return ended ? std::nullopt : std::optional(path);
    }
    void wakeUp() const
    {
        const std::uint64_t one = 1;
        std::ignore = ::write(wake.get(), &one, sizeof one);
    }
    /// False on a timeout.
    [[nodiscard]] bool waitFor(int milliseconds) const
    {
        std::array<pollfd, 2> both{pollfd{events.get(), POLLIN, 0}, pollfd{wake.get(), POLLIN, 0}};
        const bool happened = ::poll(both.data(), both.size(), milliseconds) > 0;
        drain(events.get());
        drain(wake.get());
        return happened;
    }
    void follow(const std::string &file)
    {
        events = FileHandle(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
        if (file.empty())
            return;
        ::inotify_add_watch(events.get(), folderOf(file).c_str(),
            IN_CLOSE_WRITE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE | IN_CREATE);
        ::inotify_add_watch(events.get(), file.c_str(), IN_CLOSE_WRITE | IN_MODIFY | IN_ATTRIB);
    }
    void notify()
    {
        const std::lock_guard lock(mutex);
        if (!ended)
            changed();
    }

    std::mutex mutex;
    std::function<void()> changed;
    std::string path;
    bool ended = false;
    FileHandle events;
    FileHandle wake;
};

FileWatch::FileWatch(std::function<void()> changed)
    : m_shared(std::make_shared<Shared>(std::move(changed)))
{
    // Signals are handled by the main thread.
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, &before);
    std::thread([shared = m_shared] { run(shared); }).detach();
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

FileWatch::~FileWatch()
{
    {
        const std::lock_guard lock(m_shared->mutex);
        m_shared->ended = true;
    }
    m_shared->wakeUp();
}

void FileWatch::watch(const std::string &path)
{
    {
        const std::lock_guard lock(m_shared->mutex);
        if (m_shared->path == path)
            return;
        m_shared->path = path;
    }
    m_shared->wakeUp();
}

void FileWatch::run(const std::shared_ptr<Shared> &shared)
{
    std::string path;
    Stamp known;
    while (const auto watchedPath = shared->watchedPath()) {
        if (*watchedPath != path) {
            path = *watchedPath;
            shared->follow(path);
            known = stampOf(path);
            // The file may have changed since it was read.
            shared->notify();
        }
        const bool happened = shared->waitFor(path.empty() ? -1 : pollInterval);
        if (happened)
            for (int i = 0; i < maxSteps && shared->watchedPath() == path && shared->waitFor(settleTime);
                 ++i) { }
        if (shared->watchedPath() != path)
            continue;
        const auto now = stampOf(path);
        // A missing file may have been created and removed again.
        if (now == known && (now.exists || !happened))
            continue;
        known = now;
        // The old watch is on the old inode.
        shared->follow(path);
        shared->notify();
    }
}

} // namespace kevra
