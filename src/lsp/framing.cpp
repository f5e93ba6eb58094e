// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/framing.h"

#include "text/words.h"

#include <algorithm>
#include <charconv>

namespace kevra::lsp {
namespace {

constexpr std::size_t longestHeader = 4096;
constexpr std::string_view fieldName = "Content-Length";
constexpr std::size_t longestContent = std::size_t{1} << 28;

[[nodiscard]] std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t\r");
    return first == text.npos ? std::string_view()
                              : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

/// The field Content-Length of a header's lines.
[[nodiscard]] std::optional<std::size_t> contentLength(std::string_view header)
{
    std::optional<std::size_t> length;
    while (!header.empty()) {
        const auto end = std::min(header.find('\n'), header.size());
        const auto line = header.substr(0, end);
        header.remove_prefix(std::min(end + 1, header.size()));
        const auto colon = line.find(':');
        if (colon == line.npos || !equalIgnoringCase(trimmed(line.substr(0, colon)), fieldName))
            continue;
        const auto value = trimmed(line.substr(colon + 1));
        std::size_t number = 0;
        const auto [last, error] = std::from_chars(value.data(), value.data() + value.size(), number);
        if (error == std::errc() && last == value.data() + value.size())
            length = number;
    }
    return length;
}

} // namespace

/// Where the empty line after the header's fields ends, from m_start on.
std::optional<std::size_t> FrameReader::headerEnd() const
{
    const auto window = std::string_view(m_bytes).substr(m_start, longestHeader);
    const auto strict = window.find("\r\n\r\n");
    const auto lenient = window.find("\n\n");
    if (strict == window.npos && lenient == window.npos)
        return std::nullopt;
    return strict < lenient ? strict + 4 : lenient + 2;
}

Frame FrameReader::refused(std::size_t length, std::string why)
{
    m_start += length;
    m_lost = true;
    return {{}, std::move(why)};
}

/// Skips to the next header; false if there is none so far.
bool FrameReader::findHeader()
{
    const auto field = std::search(m_bytes.begin() + static_cast<std::ptrdiff_t>(m_start), m_bytes.end(),
        fieldName.begin(), fieldName.end(), [](char a, char b) { return lowerAscii(a) == lowerAscii(b); });
    m_lost = field == m_bytes.end();
    // Only part of the field's name may have been received.
    const auto kept = m_lost ? std::min(fieldName.size() - 1, m_bytes.size() - m_start)
                             : static_cast<std::size_t>(m_bytes.end() - field);
    m_start = m_bytes.size() - kept;
    return !m_lost;
}

std::optional<Frame> FrameReader::next()
{
    if (m_start > longestHeader && m_start * 2 > m_bytes.size()) {
        m_bytes.erase(0, m_start);
        m_start = 0;
    }
    if (m_lost && !findHeader())
        return std::nullopt;
    const auto left = m_bytes.size() - m_start;
    const auto end = headerEnd();
    if (!end)
        return left < longestHeader ? std::nullopt
                                    : std::optional(refused(longestHeader, "The header does not end."));
    const auto length = contentLength(std::string_view(m_bytes).substr(m_start, *end));
    if (!length)
        return refused(*end, "The header has no Content-Length.");
    if (*length > longestContent)
        return refused(*end, "The message is too long.");
    if (left < *end + *length)
        return std::nullopt;
    Frame frame{m_bytes.substr(m_start + *end, *length), {}};
    m_start += *end + *length;
    return frame;
}

std::string framed(std::string_view content)
{
    return "Content-Length: " + std::to_string(content.size()) + "\r\n\r\n" + std::string(content);
}

} // namespace kevra::lsp
