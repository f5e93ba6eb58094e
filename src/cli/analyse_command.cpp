// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/analyse_command.h"

#include "cli/exit_code.h"
#include "cli/fix_file.h"
#include "cli/input_file.h"
#include "page/document_findings.h"
#include "text/system_path.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>

namespace kevra {
namespace {

namespace fs = std::filesystem;

void printError(std::string_view name, std::string_view why)
{
    std::cerr << "kevra-cli: " << name << ": " << why << '\n';
}

/// As it is where there is no current folder.
[[nodiscard]] std::string absolute(const std::string &path)
{
    std::error_code error;
    const auto whole = fs::absolute(systemPath(path), error);
    return error ? path : whole.string();
}

[[nodiscard]] bool isHidden(const fs::path &path)
{
    return path.filename().string().starts_with('.');
}

/// Adds every script and page below a folder, sorted by path; skips hidden folders and links to folders.
/// False when part of it cannot be read.
bool addFilesBelow(const fs::path &folder, std::vector<std::string> &paths)
{
    std::error_code error;
    const auto first = paths.size();
    fs::recursive_directory_iterator at(folder, error);
    for (; !error && at != fs::recursive_directory_iterator(); at.increment(error)) {
        std::error_code unknown;
        if (at->is_directory(unknown)) {
            if (isHidden(at->path()))
                at.disable_recursion_pending();
        } else if (at->is_regular_file(unknown) && page::isAnalysed(at->path().string())) {
            paths.push_back(at->path().string());
        }
    }
    std::sort(paths.begin() + static_cast<std::ptrdiff_t>(first), paths.end());
    if (error)
        printError(folder.string(), error.message());
    return !error;
}

class Analyse {
public:
    explicit Analyse(const AnalyseOptions &options)
        : m_options(options)
    {
    }

    int run()
    {
        for (const auto &path : filesNamed())
            analyse(path);
        if (m_options.format == AnalysisFormat::Sarif)
            std::cout << sarifReport(m_files);
        return m_exitCode;
    }

private:
    [[nodiscard]] std::vector<std::string> filesNamed()
    {
        std::vector<std::string> paths;
        for (const auto &named : m_options.paths) {
            const auto path = systemPath(named);
            std::error_code unknown;
            if (!fs::is_directory(path, unknown))
                paths.push_back(named);
            else if (!addFilesBelow(path, paths))
                m_exitCode = Failure;
        }
        return paths;
    }

    void analyse(const std::string &path)
    {
        const auto bytes = FileBytes::read(path);
        if (!bytes) {
            m_exitCode = Failure;
            return;
        }
        AnalysedFile file{path, {}, {}};
        if (m_options.fix) {
            fix(file, bytes->view());
        } else {
            file.text = FileText(path, bytes->view(), m_options.encoding).view();
            file.findings = findingsIn(path, file.text);
        }
        if (!file.findings.empty())
            m_exitCode = std::max<int>(m_exitCode, FindingsReported);
        if (m_options.format == AnalysisFormat::Sarif)
            m_files.push_back(std::move(file));
        else
            std::cout << analysisReport(file, m_options.format);
    }

    /// Sets the file's text as it is on the disk afterwards, and the findings that remain.
    void fix(AnalysedFile &file, std::string_view bytes)
    {
#ifdef KEVRA_CAN_FIX
        auto fixed = fixFile(file.name, bytes, m_options.encoding,
            [&](std::string_view text) { return findingsIn(file.name, text); });
        for (const auto &line : fixed.report)
            std::cerr << line << '\n';
        if (!fixed.written)
            m_exitCode = Failure;
        file.text = std::move(fixed.text);
        file.findings = std::move(fixed.findings);
#else
        (void)bytes;
        (void)file;
#endif
    }

    /// Only the findings at the requested level or above.
    [[nodiscard]] std::vector<script::Finding> findingsIn(const std::string &path, std::string_view text)
    {
        auto findings = m_analysis.run(text,
            {script::fileKind(path).value_or(script::FileKind::Script), absolute(path), m_options.site});
        std::erase_if(
            findings, [&](const script::Finding &finding) { return finding.level() > m_options.level; });
        return findings;
    }

    const AnalyseOptions &m_options;
    page::DocumentAnalysis m_analysis;
    std::vector<AnalysedFile> m_files;
    int m_exitCode = Success;
};

} // namespace

int runAnalyse(const AnalyseOptions &options)
{
    return Analyse(options).run();
}

int runExplain(const std::string &code)
{
    const auto rule = script::ruleOfCode(code);
    if (!rule) {
        printError(code, "no such code");
        return Failure;
    }
    std::cout << explanation(*rule);
    return Success;
}

} // namespace kevra
