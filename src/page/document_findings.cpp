// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/document_findings.h"

#include "page/disk_files.h"
#include "script/file_analysis.h"

#ifdef KEVRA_PAGES
#include "page/page_analysis.h"
#include "text/paths.h"
#endif

namespace kevra::page {

#ifdef KEVRA_PAGES

namespace {

/// PHP is not read as VBScript, nor is a page without a name that holds scripts only.
[[nodiscard]] bool hasScript(const DocumentPlace &place)
{
    return place.path.empty() || script::fileKind(place.path) || !isPage(place.path);
}

} // namespace

DocumentAnalysis::DocumentAnalysis()
    : m_files(std::make_unique<DiskFiles>())
{
}

std::vector<script::Finding> DocumentAnalysis::run(std::string_view text, const DocumentPlace &place)
{
    std::vector<script::Finding> findings;
    if (hasScript(place))
        findings = script::analyseFile(text, place.kind);
    script::mergeFindings(findings, ofPage(text, place));
    return findings;
}

std::vector<script::Finding> DocumentAnalysis::ofPage(std::string_view text, const DocumentPlace &place)
{
    if (place.path.empty() ? place.kind != script::FileKind::Page : !isPage(place.path))
        return {};
    return analysePage(text, {std::string(parentFolder(place.path)), place.site}, *m_files);
}

bool isAnalysed(std::string_view path)
{
    return script::fileKind(path) || isPage(path);
}

#else

DocumentAnalysis::DocumentAnalysis() = default;

std::vector<script::Finding> DocumentAnalysis::run(std::string_view text, const DocumentPlace &place)
{
    return script::analyseFile(text, place.kind);
}

std::vector<script::Finding> DocumentAnalysis::ofPage(std::string_view, const DocumentPlace &)
{
    return {};
}

bool isAnalysed(std::string_view path)
{
    return script::fileKind(path).has_value();
}

#endif

DocumentAnalysis::~DocumentAnalysis() = default;

} // namespace kevra::page
