// SPDX-License-Identifier: GPL-3.0-or-later
// The base protocol: messages in a stream of bytes, each with a header that gives its length.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kevra::lsp {

struct Frame {
    std::string content;
    std::string fault; ///< why there is no content
};

/// Takes the bytes in chunks of any size. Anything that is not a header is reported once and skipped up to
/// the next header.
class FrameReader {
public:
    void add(std::string_view bytes) { m_bytes += bytes; }
    /// Nothing until more bytes are received.
    [[nodiscard]] std::optional<Frame> next();

private:
    [[nodiscard]] std::optional<std::size_t> headerEnd() const;
    [[nodiscard]] Frame refused(std::size_t length, std::string why);
    bool findHeader();

    std::string m_bytes;
    std::size_t m_start = 0; ///< of the bytes not returned yet
    bool m_lost = false; ///< out of step: looking for the next header
};

[[nodiscard]] std::string framed(std::string_view content);

} // namespace kevra::lsp
