// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/input_file.h"

#include "cli/standard_streams.h"
#include "document/file_types.h"
#include "encoding/text_codec.h"
#include "text/system_path.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>

namespace kevra {
namespace {

constexpr std::string_view standardInput = "-";

struct Closer {
    void operator()(std::FILE *file) const
    {
        if (file != stdin)
            std::fclose(file);
    }
};

} // namespace

std::optional<FileBytes> FileBytes::read(const std::string &path)
{
    std::error_code error;
    const std::unique_ptr<std::FILE, Closer> file(
        path == standardInput ? stdin : openForReading(path, error));
    FileBytes bytes;
    std::error_code unknownSize;
    const auto size = std::filesystem::file_size(systemPath(path), unknownSize);
    if (file)
        error = bytes.readAll(*file, unknownSize ? initialCapacity : static_cast<std::size_t>(size) + 1);
    if (error) {
        std::fprintf(stderr, "kevra-cli: %s: %s\n", path.c_str(), error.message().c_str());
        return std::nullopt;
    }
    return bytes;
}

std::error_code FileBytes::readAll(std::FILE &file, std::size_t capacity)
{
    m_bytes = allocateBytes(capacity);
    for (;;) {
        m_size += std::fread(m_bytes.get() + m_size, 1, capacity - m_size, &file);
        if (std::ferror(&file))
            return {errno, std::generic_category()};
        if (m_size < capacity)
            return {};
        auto larger = allocateBytes(2 * capacity);
        std::copy_n(m_bytes.get(), m_size, larger.get());
        m_bytes = std::move(larger);
        capacity *= 2;
    }
}

FileText::FileText(const std::string &path, std::string_view bytes, std::optional<Encoding> encoding)
{
    const auto type = fileType(path);
    const auto kind = type ? type->kind : TextKind::Script;
    const bool plain = !encoding && decodesUnchanged(bytes);
    if (encoding)
        m_decoded = decodeFileAs(bytes, kind, *encoding).text;
    else if (!plain)
        m_decoded = decodeFile(bytes, kind).text;
    m_view = plain ? bytes : m_decoded;
}

} // namespace kevra
