// SPDX-License-Identifier: GPL-3.0-or-later
// The files named on the command line: their bytes, and their text as the editor would show it.
#pragma once

#include "encoding/character_sets.h"
#include "text/raw_buffer.h"

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace kevra {

/// A file's bytes, read into a buffer that is not initialised first.
class FileBytes {
public:
    /// "-" is standard input. A failure is reported on standard error.
    static std::optional<FileBytes> read(const std::string &path);

    [[nodiscard]] std::string_view view() const { return {m_bytes.get(), m_size}; }

private:
    static constexpr std::size_t initialCapacity = 1 << 20;

    [[nodiscard]] std::error_code readAll(std::FILE &file, std::size_t capacity);

    RawBuffer m_bytes;
    std::size_t m_size = 0;
};

/// A file's text; usually just a view of its bytes, which must outlive it.
class FileText {
public:
    /// Decodes as `encoding`, or as the encoding that the editor would detect.
    FileText(const std::string &path, std::string_view bytes, std::optional<Encoding> encoding);
    FileText(const FileText &) = delete;
    FileText &operator=(const FileText &) = delete;

    [[nodiscard]] std::string_view view() const { return m_view; }

private:
    std::string m_decoded;
    std::string_view m_view;
};

} // namespace kevra
