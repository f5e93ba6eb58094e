// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/lsp_command.h"

#include "cli/input_file.h"
#include "lsp/server.h"
#include "page/document_findings.h"
#include "script/islands.h"
#include "snippets/snippets.h"
#include "text/system_path.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <unistd.h>

namespace kevra {
namespace {

namespace fs = std::filesystem;

class SystemFiles : public lsp::FileSystem {
public:
    std::optional<std::string> read(const std::string &path) override
    {
        const auto bytes = FileBytes::read(path);
        if (!bytes)
            return std::nullopt;
        return std::string(FileText(path, bytes->view(), std::nullopt).view());
    }

    std::uint64_t stamp(const std::string &named) override
    {
        const auto path = systemPath(named);
        std::error_code error;
        if (!fs::is_regular_file(path, error))
            return 0;
        const auto time = fs::last_write_time(path, error).time_since_epoch().count();
        const auto size = fs::file_size(path, error);
        // Never 0, which means that there is no file.
        return (static_cast<std::uint64_t>(time) * 31 + size) | 1;
    }

    std::vector<std::string> scriptsBelow(const std::string &folder) override
    {
        constexpr std::size_t maxEntries = 20'000;
        std::vector<std::string> paths;
        std::error_code error;
        fs::recursive_directory_iterator entry(systemPath(folder), error);
        for (std::size_t seen = 0; !error && entry != fs::recursive_directory_iterator() && seen < maxEntries;
             entry.increment(error), ++seen) {
            std::error_code unknown;
            const auto &path = entry->path();
            if (path.filename().string().starts_with('.'))
                entry.disable_recursion_pending();
            else if (script::fileKind(path.string()) && entry->is_regular_file(unknown))
                paths.push_back(path.generic_string());
        }
        return paths;
    }

    std::vector<script::Finding> pageFindings(
        std::string_view text, script::FileKind kind, const std::string &path) override
    {
        return m_analysis.ofPage(text, {kind, path, {}});
    }

private:
    page::DocumentAnalysis m_analysis;
};

[[nodiscard]] std::vector<lsp::SnippetText> scriptSnippets()
{
    std::vector<lsp::SnippetText> out;
    for (const auto &snippet : snippets()) {
        if (snippet.insertion == Insertion::ScriptLine)
            out.push_back({snippet.caption, snippet.text});
    }
    return out;
}

} // namespace

int runLanguageServer()
{
    SystemFiles files;
    const auto read = [](char *room, std::size_t size) {
        const auto count = ::read(STDIN_FILENO, room, size);
        return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    };
    const auto write = [](std::string_view bytes) {
        std::fwrite(bytes.data(), 1, bytes.size(), stdout);
        std::fflush(stdout);
    };
    return lsp::serve(files, scriptSnippets(), read, write);
}

} // namespace kevra
