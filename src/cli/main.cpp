// SPDX-License-Identifier: GPL-3.0-or-later
// kevra-cli: the checker and the colours without a window. The files named are only read.
#include "checker/checker.h"
#include "cli/check_report.h"
#include "cli/colour_report.h"
#include "colour/flat_runs.h"
#include "colour/keyword_pass.h"
#include "colour/tag_pass.h"
#include "files/file_types.h"
#include "files/text_codec.h"

#include <CLI/CLI.hpp>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>

namespace {

using namespace kevra;

enum ExitCode { AllRight = 0, SomethingFound = 1, Unusable = 2 };

enum class Mode { Auto, Web, Script };

constexpr std::string_view standardInput = "-";

struct Closer {
    void operator()(std::FILE *file) const
    {
        if (file != stdin)
            std::fclose(file);
    }
};

/// Tells on standard error why a file cannot be read.
std::optional<std::string> readFile(const std::string &path)
{
    const std::unique_ptr<std::FILE, Closer> file(
        path == standardInput ? stdin : std::fopen(path.c_str(), "rb"));
    std::string bytes;
    constexpr std::size_t step = 1 << 20;
    std::size_t got = 0;
    while (file) {
        bytes.resize(got + step);
        const auto read = std::fread(bytes.data() + got, 1, step, file.get());
        got += read;
        if (read < step)
            break;
    }
    bytes.resize(got);
    if (!file || std::ferror(file.get())) {
        std::cerr << "kevra-cli: " << path << ": " << std::strerror(errno) << '\n';
        return std::nullopt;
    }
    return bytes;
}

DecodedFile decode(const std::string &path, std::string_view bytes)
{
    const auto type = fileType(path);
    return decodeFile(bytes, type ? type->kind : TextKind::Script);
}

struct CheckOptions {
    std::vector<std::string> files;
    bool all = false;
    bool ifChecking = true;
    CheckFormat format = CheckFormat::Text;
};

std::vector<Finding> findingsOf(std::string_view text, const CheckOptions &options)
{
    if (options.all)
        return checkAll(text, options.ifChecking);
    const auto result = check(text, options.ifChecking);
    if (result.fault)
        return {*result.fault};
    if (result.verdict == CheckResult().verdict)
        return {};
    return {{result.verdict, 0, {}, 0}};
}

int runCheck(const CheckOptions &options)
{
    int exitCode = AllRight;
    for (const auto &path : options.files) {
        const auto bytes = readFile(path);
        if (!bytes) {
            exitCode = Unusable;
            continue;
        }
        const CheckedFile file{path, findingsOf(decode(path, *bytes).text, options)};
        std::cout << checkReport(file, options.format);
        if (!file.findings.empty())
            exitCode = std::max<int>(exitCode, SomethingFound);
    }
    return exitCode;
}

struct ColourOptions {
    std::string file;
    Mode mode = Mode::Auto;
    ColourFormat format = ColourFormat::Html;
};

/// As the editor does when it opens the file; what has no type goes by its first character.
ColourRuns runsOf(std::string_view text, const ColourOptions &options)
{
    constexpr auto code = colours::defaultCode;
    if (options.mode != Mode::Auto)
        return options.mode == Mode::Web ? tagRuns(text, code) : scriptRuns(text, code);
    const auto type = fileType(options.file);
    if (!type) {
        const auto first = text.find_first_not_of(" \t\r\n");
        return first != std::string_view::npos && text[first] == '<' ? tagRuns(text, code)
                                                                     : scriptRuns(text, code);
    }
    if (type->group == TypeGroup::WebPage)
        return tagRuns(text, code);
    return type->group == TypeGroup::Script ? scriptRuns(text, code) : ColourRuns();
}

int runColour(const ColourOptions &options)
{
    const auto bytes = readFile(options.file);
    if (!bytes)
        return Unusable;
    const auto text = decode(options.file, *bytes).text;
    const auto runs = flattened(runsOf(text, options), static_cast<Offset>(text.size()));
    std::cout << colourReport(text, runs, options.file, options.format);
    return AllRight;
}

} // namespace

int main(int argc, char **argv)
{
    std::ios::sync_with_stdio(false);
    CLI::App app("Checks and colours web pages and Windows scripts.", "kevra-cli");
    app.require_subcommand(1);

    CheckOptions checkOptions;
    auto *checkCommand = app.add_subcommand("check", "Look for common mistakes in scripts");
    checkCommand->add_flag("--all", checkOptions.all, "Go on after a faulty line and print every finding");
    checkCommand->add_flag("!--no-if", checkOptions.ifChecking, "Leave out the IF/END IF count");
    checkCommand->add_option("--format", checkOptions.format, "text, gcc or json")
        ->transform(CLI::CheckedTransformer(std::map<std::string, CheckFormat>{
            {"text", CheckFormat::Text}, {"gcc", CheckFormat::Gcc}, {"json", CheckFormat::Json}}));
    checkCommand->add_option("FILE", checkOptions.files, "Scripts; - is standard input")->required();

    ColourOptions colourOptions;
    auto *colourCommand = app.add_subcommand("colour", "Print a text in its colours");
    colourCommand->add_option("--mode", colourOptions.mode, "auto, web or script")
        ->transform(CLI::CheckedTransformer(
            std::map<std::string, Mode>{{"auto", Mode::Auto}, {"web", Mode::Web}, {"script", Mode::Script}}));
    colourCommand->add_option("--format", colourOptions.format, "html, ansi or runs")
        ->transform(CLI::CheckedTransformer(std::map<std::string, ColourFormat>{
            {"html", ColourFormat::Html}, {"ansi", ColourFormat::Ansi}, {"runs", ColourFormat::Runs}}));
    colourCommand->add_option("FILE", colourOptions.file, "A text; - is standard input")->required();

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? AllRight : Unusable;
    }
    const int exitCode = *checkCommand ? runCheck(checkOptions) : runColour(colourOptions);
    std::cout.flush();
    return std::cout ? exitCode : Unusable;
}
