// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/checker.h"

#include "checker/block_counts.h"
#include "checker/line_rules.h"
#include "checker/object_rules.h"
#include "text/start_computing.h"

#include <charconv>

namespace kevra {

CheckResult check(std::string_view text, bool ifChecking)
{
    CheckResult result;
    // For a small text, each kind of rule runs only if the one before it found nothing.
    auto counts = startComputing(text, [text] { return countScriptBlocks(text); });
    auto objects = startComputing(text, [text] { return CheckObjectReferences(text); });
    if (auto faults = lineFaults(text, Faults::First); !faults.empty()) {
        auto *fault = &faults.front();
        result.verdict = fault->message;
        // If text follows, the run marks the line again, with the caret one position further left.
        result.recolourBeforeMark = fault->caret + 1 < static_cast<Offset>(text.size());
        if (result.recolourBeforeMark)
            --fault->caret;
        result.fault = std::move(*fault);
        return result;
    }
    result.reachedBlocks = true;
    if (const auto blocks = blockVerdicts(counts.get(), ifChecking); !blocks.empty()) {
        result.verdict = blocks.front();
        return result;
    }
    if (const auto references = objects.get(); !references.empty()) {
        result.verdict = references.front().message;
        result.fault = references.front();
    }
    return result;
}

std::vector<Fault> checkAll(std::string_view text, bool ifChecking)
{
    auto counts = startComputing(text, [text] { return countScriptBlocks(text); });
    auto objects = startComputing(text, [text] { return CheckObjectReferences(text, true); });
    auto faults = lineFaults(text, Faults::All);
    for (auto &verdict : blockVerdicts(counts.get(), ifChecking))
        faults.push_back({std::move(verdict), 0, {}, 0});
    for (auto &fault : objects.get())
        faults.push_back(std::move(fault));
    return faults;
}

std::optional<Offset> lineNamedBy(std::string_view fault)
{
    constexpr std::string_view mark = " - Line ";
    const auto at = fault.rfind(mark);
    if (at == std::string_view::npos)
        return std::nullopt;
    const auto number = fault.substr(at + mark.size());
    Offset line = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), line);
    const bool whole = error == std::errc() && end == number.data() + number.size() && line > 0;
    return whole ? std::optional(line) : std::nullopt;
}

} // namespace kevra
