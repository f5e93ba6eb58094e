// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/checker.h"

#include "checker/block_counts.h"
#include "checker/line_rules.h"
#include "checker/object_rules.h"
#include "colour/document_colouring.h"
#include "document/programmatic_change.h"
#include "text/nearby.h"
#include "text/start_computing.h"

#include <charconv>

namespace kevra {
CheckResult check(std::string_view text, bool ifChecking)
{
    CheckResult result;
    // Of a small text, each kind of rule is tried only once the one before it has found nothing.
    auto counts = startComputing(text, [text] { return countBlocks(text); });
    auto objects = startComputing(text, [text] { return CheckObjectReferences(text); });
    if (auto faults = checkLines(text, Faults::First); !faults.empty()) {
        auto *fault = &faults.front();
        result.verdict = fault->message;
        // Only while text follows does the run come round to mark the line once more, one place further left.
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

std::vector<Finding> checkAll(std::string_view text, bool ifChecking)
{
    auto counts = startComputing(text, [text] { return countBlocks(text); });
    auto objects = startComputing(text, [text] { return CheckObjectReferences(text, true); });
    auto findings = checkLines(text, Faults::All);
    for (auto &verdict : blockVerdicts(counts.get(), ifChecking))
        findings.push_back({std::move(verdict), 0, {}, 0});
    for (auto &finding : objects.get())
        findings.push_back(std::move(finding));
    return findings;
}

std::optional<Offset> lineNamedBy(std::string_view finding)
{
    constexpr std::string_view mark = " - Line ";
    const auto at = finding.rfind(mark);
    if (at == std::string_view::npos)
        return std::nullopt;
    const auto number = finding.substr(at + mark.size());
    Offset line = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), line);
    const bool whole = error == std::errc() && end == number.data() + number.size() && line > 0;
    return whole ? std::optional(line) : std::nullopt;
}

Checker::Checker(EditorSurface &document, DocumentState &state, MainView &view)
    : m_document(document)
    , m_state(state)
    , m_view(view)
{
}

void Checker::runDebugger()
{
    bool marked = false;
    {
        const BusySurface busy(m_document);
        m_view.setInformation("Debugging. . .");
        marked = RunDebugger();
    }
    m_document.SetFocus();
    // The inert control kept its view; the faulty line is worth scrolling to, a good script is not.
    if (marked)
        m_document.SetSelStart(m_document.SelStart());
}

bool Checker::RunDebugger()
{
    const ProgrammaticChange guard(m_state);
    const auto result = check(m_document.Text(), m_state.ifChecking);
    if (result.reachedBlocks)
        DocumentColouring(m_document, m_state).removeColours();
    if (m_state.takesColour() && (result.reachedBlocks || result.recolourBeforeMark))
        recolour();
    m_view.setInformation(result.verdict);
    if (result.fault)
        mark(*result.fault);
    else
        m_document.SetSelStart(0);
    m_view.syncLineNumbers();
    return result.fault.has_value();
}

void Checker::recolour()
{
    DocumentColouring colouring(m_document, m_state);
    colouring.removeColours();
    colouring.colourForTools();
}

void Checker::mark(const Finding &fault)
{
    const ColourRun red{fault.marked, colours::fault};
    m_document.SetColours(fault.marked, {&red, 1});
    m_document.SetSelStart(fault.caret);
    m_document.SetSelColor(colours::black);
}

void Checker::checkFinishedLine(TextRange line)
{
    // The rules look one character behind the line and a few before it, never further.
    constexpr Offset around = 8;
    const auto base = std::max<Offset>(line.start - around, 0);
    const auto text = m_document.Text({base, std::min(line.end + around, m_document.Length())});
    const auto number = m_document.GetLineFromChar(line.start + 1) + 1;
    auto fault = CheckLine(text, {line.start - base, line.end - base}, number);
    if (!fault)
        return;
    fault->marked = {fault->marked.start + base, fault->marked.end + base};
    fault->caret += base;
    m_view.setInformation(fault->message);
    mark(*fault);
}

} // namespace kevra
