// SPDX-License-Identifier: GPL-3.0-or-later
// The base protocol: messages in a stream of bytes, each with a header that says how long it is.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kevra::lsp {

struct Frame {
    std::string content;
    std::string fault; ///< why there is no content
};

/// Takes the bytes as they come, in any portions. What is no header is reported once and passed over, up to
/// the next that is one.
class FrameReader {
public:
    void add(std::string_view bytes) { m_bytes += bytes; }
    /// Nothing until more bytes have come.
    [[nodiscard]] std::optional<Frame> next();

private:
    [[nodiscard]] std::optional<std::size_t> headerEnd() const;
    [[nodiscard]] Frame refused(std::size_t length, std::string why);
    bool findHeader();

    std::string m_bytes;
    std::size_t m_start = 0; ///< of what has not been handed out
    bool m_lost = false; ///< where a message begins is not known
};

[[nodiscard]] std::string framed(std::string_view content);

} // namespace kevra::lsp
