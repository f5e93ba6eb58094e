// SPDX-License-Identifier: GPL-3.0-or-later
// Findings of the analysis in the formats of the command line.
#pragma once

#include "script/finding.h"
#include "script/tree.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

enum class AnalysisFormat { Text, Gcc, Json, Sarif };

struct AnalysedFile {
    std::string name; ///< any bytes, as given on the command line
    std::string text; ///< the text that the positions of the findings refer to
    std::vector<script::Finding> findings;
};

/// Lines and columns count from 1, columns in characters.
struct Position {
    Offset line = 1;
    Offset column = 1;
};

class Positions {
public:
    explicit Positions(std::string_view text);
    [[nodiscard]] Position at(Offset offset) const;

private:
    [[nodiscard]] Offset charactersBefore(Offset offset) const;

    std::string_view m_text;
    script::LineIndex m_lines;
    std::vector<Offset> m_characters; ///< before each block of bytes: a line can be as long as the text
};

/// The report for one file, in any format but Sarif. Empty in the text and gcc formats when there are no
/// findings.
[[nodiscard]] std::string analysisReport(const AnalysedFile &file, AnalysisFormat format);
/// All files as one SARIF 2.1.0 document.
[[nodiscard]] std::string sarifReport(std::span<const AnalysedFile> files);
/// A rule's title and rationale, wrapped for a terminal.
[[nodiscard]] std::string explanation(script::Rule rule);

} // namespace kevra
