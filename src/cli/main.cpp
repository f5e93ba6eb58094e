// SPDX-License-Identifier: GPL-3.0-or-later
// kevra-cli: checks, colours and analyses files without a window. Only --fix writes files.
#include "checker/checker.h"
#include "cli/analyse_command.h"
#include "cli/check_report.h"
#include "cli/colour_report.h"
#include "cli/exit_code.h"
#include "cli/input_file.h"
#include "cli/lsp_command.h"
#include "cli/standard_streams.h"
#include "colour/flat_runs.h"
#include "colour/keyword_pass.h"
#include "colour/tag_pass.h"
#include "document/file_types.h"
#include "encoding/character_sets.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <new>
#include <system_error>

namespace {

using namespace kevra;

enum class Mode { Auto, Web, Script };

struct CheckOptions {
    std::vector<std::string> files;
    bool all = false;
    bool ifChecking = true;
    std::optional<Encoding> encoding; ///< unset: detected for each file
    CheckFormat format = CheckFormat::Text;
};

std::vector<Fault> faultsOf(std::string_view text, const CheckOptions &options)
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
    int exitCode = Success;
    for (const auto &path : options.files) {
        const auto bytes = FileBytes::read(path);
        if (!bytes) {
            exitCode = Failure;
            continue;
        }
        const FileText text(path, bytes->view(), options.encoding);
        const CheckedFile file{path, faultsOf(text.view(), options)};
        std::cout << checkReport(file, options.format);
        if (!file.faults.empty())
            exitCode = std::max<int>(exitCode, FindingsReported);
    }
    return exitCode;
}

struct ColourOptions {
    std::string file;
    Mode mode = Mode::Auto;
    std::optional<Encoding> encoding;
    ColourFormat format = ColourFormat::Html;
};

/// Colours as the editor does when it opens the file. Without a known type the first character decides.
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
    const auto bytes = FileBytes::read(options.file);
    if (!bytes)
        return Failure;
    const FileText decoded(options.file, bytes->view(), options.encoding);
    const auto text = decoded.view();
    const auto runs = flattened(runsOf(text, options), static_cast<Offset>(text.size()));
    std::cout << colourReport(text, runs, options.file, options.format);
    return Success;
}

void addEncodingOption(CLI::App &command, std::optional<Encoding> &encoding)
{
    const auto take = [&encoding](const std::string &name) {
        encoding = encodingNamed(name);
        if (!encoding)
            throw CLI::ValidationError("--encoding", "no character set is named " + name);
    };
    command
        .add_option_function<std::string>("--encoding", take, "The files' character set, as pages name it")
        ->option_text("NAME");
}

CLI::App *addCheckCommand(CLI::App &app, CheckOptions &options)
{
    auto *command = app.add_subcommand("check", "Look for common mistakes in scripts");
    command->add_flag("--all", options.all, "Continue after a faulty line and print every finding");
    command->add_flag_callback(
        "--no-if", [&options] { options.ifChecking = false; }, "Leave out the IF/END IF count");
    command->add_option("--format", options.format, "How findings are printed")
        ->option_text("text|gcc|json")
        ->transform(CLI::CheckedTransformer(std::map<std::string, CheckFormat>{
            {"text", CheckFormat::Text}, {"gcc", CheckFormat::Gcc}, {"json", CheckFormat::Json}}));
    addEncodingOption(*command, options.encoding);
    command->add_option("FILE", options.files, "Scripts; - is standard input")
        ->option_text("...")
        ->required();
    return command;
}

void addColourCommand(CLI::App &app, ColourOptions &options)
{
    auto *command = app.add_subcommand("colour", "Print a text in its colours");
    command->add_option("--mode", options.mode, "Tags, keywords, or by the file's type")
        ->option_text("auto|web|script")
        ->transform(CLI::CheckedTransformer(
            std::map<std::string, Mode>{{"auto", Mode::Auto}, {"web", Mode::Web}, {"script", Mode::Script}}));
    command->add_option("--format", options.format, "How the coloured text is printed")
        ->option_text("html|ansi|runs")
        ->transform(CLI::CheckedTransformer(std::map<std::string, ColourFormat>{
            {"html", ColourFormat::Html}, {"ansi", ColourFormat::Ansi}, {"runs", ColourFormat::Runs}}));
    addEncodingOption(*command, options.encoding);
    command->add_option("FILE", options.file, "A text; - is standard input")->option_text(" ")->required();
}

CLI::App *addAnalyseCommand(CLI::App &app, AnalyseOptions &options)
{
    auto *command = app.add_subcommand("analyse", "Look for mistakes in scripts and pages");
    command->add_option("--level", options.level, "The lowest level to report")
        ->option_text("error|warning|hint")
        ->transform(
            CLI::CheckedTransformer(std::map<std::string, script::Level>{{"error", script::Level::Error},
                {"warning", script::Level::Warning}, {"hint", script::Level::Hint}}));
    command->add_option("--format", options.format, "How findings are printed")
        ->option_text("text|gcc|json|sarif")
        ->transform(CLI::CheckedTransformer(std::map<std::string, AnalysisFormat>{
            {"text", AnalysisFormat::Text}, {"gcc", AnalysisFormat::Gcc}, {"json", AnalysisFormat::Json},
            {"sarif", AnalysisFormat::Sarif}}));
#ifdef KEVRA_CAN_FIX
    command->add_flag("--fix", options.fix, "Apply the available fixes and write the files");
#endif
    command->add_option("--site", options.site, "The folder that addresses beginning with / are taken from")
        ->option_text("FOLDER");
    addEncodingOption(*command, options.encoding);
    command->add_option("FILE", options.paths, "Scripts, pages, or folders with them; - is standard input")
        ->option_text("...")
        ->required();
    return command;
}

int run(std::vector<std::string> arguments)
{
    std::ios::sync_with_stdio(false);
    CLI::App app("Checks and colours web pages and Windows scripts.", "kevra-cli");
    app.require_subcommand(1);
    app.set_version_flag("--version", "kevra-cli " KEVRA_VERSION, "Print the version and exit");
    // One page with the options of every command.
    app.set_help_flag();
    app.set_help_all_flag("-h,--help", "Print this help and exit");

    CheckOptions checkOptions;
    const auto *checkCommand = addCheckCommand(app, checkOptions);
    ColourOptions colourOptions;
    addColourCommand(app, colourOptions);
    AnalyseOptions analyseOptions;
    const auto *analyseCommand = addAnalyseCommand(app, analyseOptions);

    std::string explainedCode;
    auto *explainCommand = app.add_subcommand("explain", "Say what a fault's code is about");
    explainCommand->add_option("CODE", explainedCode, "Such as KV1001")->option_text(" ")->required();

    auto *lspCommand = app.add_subcommand("lsp", "Serve editors over standard input and output");
    lspCommand->add_flag_callback(
        "--stdio", [] {}, "Accepted from clients that add it; there is no other way");

    try {
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? Success : Failure;
    }
    const int exitCode = *checkCommand ? runCheck(checkOptions)
        : *analyseCommand              ? runAnalyse(analyseOptions)
        : *explainCommand              ? runExplain(explainedCode)
        : *lspCommand                  ? runLanguageServer()
                                       : runColour(colourOptions);
    std::cout.flush();
    return std::cout ? exitCode : Failure;
}

} // namespace

int main(int argc, char **argv)
{
    try {
        prepareStandardStreams();
        auto given = arguments(argc, argv);
        std::ranges::reverse(given); // as the parser takes them, and without the program's name
        if (!given.empty())
            given.pop_back();
        return run(std::move(given));
    } catch (const std::bad_alloc &) {
        std::fputs("kevra-cli: there is not enough memory\n", stderr);
    } catch (const std::system_error &error) { // no more threads
        std::fprintf(stderr, "kevra-cli: %s\n", error.what());
    }
    return Failure;
}
