// SPDX-License-Identifier: GPL-3.0-or-later
// The files named on the command line: their bytes, and their text as the editor would show it.
#pragma once

#include "encoding/character_sets.h"
#include "text/raw_buffer.h"

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

/// A file's bytes; the room for them is not filled before they come.
class FileBytes {
public:
    /// "-" is standard input. Tells on standard error why a file cannot be read.
    static std::optional<FileBytes> read(const std::string &path);

    [[nodiscard]] std::string_view view() const { return {m_bytes.get(), m_size}; }

private:
    static constexpr std::size_t firstRoom = 1 << 20;

    void readAll(std::FILE &file, std::size_t room);

    RawBuffer m_bytes;
    std::size_t m_size = 0;
};

/// A file's text, which most often is its bytes as they stand.
class FileText {
public:
    /// In `encoding`, or in the one that the editor would find.
    FileText(const std::string &path, std::string_view bytes, std::optional<Encoding> encoding);
    FileText(const FileText &) = delete;
    FileText &operator=(const FileText &) = delete;

    [[nodiscard]] std::string_view view() const { return m_view; }

private:
    std::string m_decoded;
    std::string_view m_view;
};

} // namespace kevra
