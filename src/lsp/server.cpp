// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/server.h"

#include "lsp/framing.h"

#include <array>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace kevra::lsp {
namespace {

/// Bytes received and not processed yet. Reading continues while a request is handled, so that its
/// cancellation is noticed.
struct Inbox {
    std::mutex mutex;
    std::condition_variable arrived;
    std::string bytes;
    bool ended = false;

    void add(std::string_view more)
    {
        {
            const std::lock_guard lock(mutex);
            bytes += more;
            ended = more.empty();
        }
        arrived.notify_one();
    }

    enum class Waiting { ForBytes, NotAtAll };
    [[nodiscard]] std::string take(Waiting waiting)
    {
        std::unique_lock lock(mutex);
        if (waiting == Waiting::ForBytes)
            arrived.wait(lock, [&] { return !bytes.empty() || ended; });
        return std::exchange(bytes, {});
    }
};

void readInto(const std::shared_ptr<Inbox> &inbox, const ReadBytes &read)
{
    std::array<char, 1 << 16> room{};
    std::size_t count = 0;
    do {
        count = read(room.data(), room.size());
        inbox->add({room.data(), count});
    } while (count > 0);
}

void receiveAll(Session &session, FrameReader &frames, std::string_view bytes)
{
    frames.add(bytes);
    while (const auto frame = frames.next()) {
        if (frame->fault.empty())
            session.receive(frame->content);
        else
            session.receiveFault(frame->fault);
    }
}

} // namespace

int serve(FileSystem &disk, std::vector<SnippetText> snippets, const ReadBytes &read, const WriteBytes &write)
{
    Session session(disk, std::move(snippets), [&](const std::string &message) { write(framed(message)); });
    FrameReader frames;
    const auto inbox = std::make_shared<Inbox>();
    // Detached: after "exit" it may wait for bytes that never come.
    std::thread([inbox, read] { readInto(inbox, read); }).detach();
    while (!session.hasEnded()) {
        receiveAll(session, frames, inbox->take(Inbox::Waiting::NotAtAll));
        if (session.processNext())
            continue;
        session.processIdle();
        const auto bytes = inbox->take(Inbox::Waiting::ForBytes);
        if (bytes.empty())
            break;
        receiveAll(session, frames, bytes);
    }
    return session.exitCode();
}

} // namespace kevra::lsp
