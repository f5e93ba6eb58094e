// SPDX-License-Identifier: GPL-3.0-or-later
// The colouring passes, text to runs, and a run of the checker, beside the least that work can cost: each
// turn times the pass and its reference over the same bytes, and "ratio" is the pass against the reference,
// the best turn of each.
//   build/release/bin/passes_bench --benchmark_counters_tabular=true
#include "checker/block_counts.h"
#include "checker/line_rules.h"
#include "checker/object_rules.h"
#include "colour/keyword_pass.h"
#include "colour/tag_pass.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <ctime>
#include <string>

namespace {

using namespace kevra;

constexpr std::size_t megabyte = 1'000'000;

std::string repeated(std::string_view bit, std::size_t size)
{
    std::string text;
    text.reserve(size + bit.size());
    while (text.size() < size)
        text += bit;
    return text;
}

double now()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

template <typename Work> double secondsOf(Work work)
{
    const auto start = now();
    work();
    return now() - start;
}

/// Finds every "<" and the ">" after it, and does nothing with them.
std::size_t scanForTags(std::string_view text)
{
    std::size_t found = 0;
    const char *const end = text.data() + text.size();
    char wanted = '<';
    for (const char *at = text.data(); at != end; ++at, ++found) {
        at = static_cast<const char *>(std::memchr(at, wanted, static_cast<std::size_t>(end - at)));
        if (!at)
            break;
        wanted = wanted == '<' ? '>' : '<';
    }
    return found;
}

/// Visits every word, and does no more than look at its letters.
std::size_t visitWords(std::string_view text)
{
    static constexpr auto inWord = [] {
        std::array<bool, 256> all{};
        for (unsigned byte = 0; byte < 256; ++byte)
            all[byte] = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z')
                || (byte >= '0' && byte <= '9') || byte == '_' || byte >= 0x80;
        return all;
    }();
    std::size_t sum = 0;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t word = 0;
        for (; at < text.size() && inWord[static_cast<unsigned char>(text[at])]; ++at)
            word = word * 31 + static_cast<unsigned char>(text[at] | 0x20);
        sum += word;
        ++at;
    }
    return sum;
}

struct Pass {
    const char *name;
    std::size_t (*pass)(std::string_view); ///< gives how much it found
    std::size_t (*reference)(std::string_view);
    std::string_view text;
};

std::size_t tags(std::string_view text)
{
    return tagRuns(text, colours::defaultCode).size();
}

std::size_t keywords(std::string_view text)
{
    return scriptRuns(text, colours::defaultCode).size();
}

/// All three kinds of rules go over the whole text, whatever they find.
std::size_t checker(std::string_view text)
{
    return lineFaults(text, Faults::First).size() + static_cast<std::size_t>(countScriptBlocks(text).ifWords)
        + CheckObjectReferences(text).size();
}

constexpr std::string_view pageLine
    = "<p><b>Hours</b> <i>Mo</i></p> of the shop, and in summer as well as on the days between years.\r\n";
constexpr std::string_view scriptLine
    = "If total = 1 Then MsgBox \"The shop is closed\" & day '-- hours\r\nSet fso = CreateObject(name)\r\n";

constexpr std::array passes{
    Pass{"tags/page", tags, scanForTags, pageLine},
    Pass{"keywords/script", keywords, visitWords, scriptLine},
    Pass{"tags/only_lt", tags, scanForTags, "<"},
    Pass{"tags/one_line", tags, scanForTags, "<b>text of a line without an end</b> "},
    Pass{"keywords/only_quotes", keywords, visitWords, "\""},
    Pass{"keywords/only_if", keywords, visitWords, "if "},
    Pass{"keywords/only_commas", keywords, visitWords, ","},
    Pass{"keywords/only_comments", keywords, visitWords, "'--"},
    Pass{"keywords/comments_in_quotes", keywords, visitWords, "'--\""},
    Pass{"keywords/only_opening", keywords, visitWords, "<<\""},
    Pass{"keywords/only_closing", keywords, visitWords, ">>\""},
    Pass{"keywords/one_line", keywords, visitWords, "If a Then MsgBox \"x\" & <<name>> "},
    Pass{"checker/script", checker, visitWords, scriptLine},
    Pass{"checker/only_lt", checker, visitWords, "<"},
    Pass{"checker/only_quotes", checker, visitWords, "\""},
    Pass{"checker/only_if", checker, visitWords, "if "},
    Pass{"checker/only_commas", checker, visitWords, ","},
    Pass{"checker/only_comments", checker, visitWords, "'--"},
    Pass{"checker/comment_lines", checker, visitWords, "'--\r"},
    Pass{"checker/one_line", checker, visitWords, "If a Then Close : Read \"x\" & (b) "},
};

void measure(benchmark::State &state, const Pass &pass)
{
    const auto text = repeated(pass.text, static_cast<std::size_t>(state.range(0)) * megabyte);
    double bestPass = 1e9;
    double bestReference = 1e9;
    for (auto _ : state) {
        bestReference
            = std::min(bestReference, secondsOf([&] { benchmark::DoNotOptimize(pass.reference(text)); }));
        const auto seconds = secondsOf([&] { benchmark::DoNotOptimize(pass.pass(text)); });
        bestPass = std::min(bestPass, seconds);
        state.SetIterationTime(seconds);
    }
    const auto perMegabyte = 1e3 / static_cast<double>(state.range(0));
    state.counters["ms/MB"] = bestPass * perMegabyte;
    state.counters["reference"] = bestReference * perMegabyte;
    state.counters["ratio"] = bestPass / bestReference;
}

} // namespace

int main(int argc, char **argv)
{
    for (const auto &pass : passes)
        for (const int size : {1, 10, 64})
            benchmark::RegisterBenchmark(
                pass.name, [&pass](benchmark::State &state) { measure(state, pass); })
                ->Arg(size)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
