// SPDX-License-Identifier: GPL-3.0-or-later
// All there is to say about a document: of the scripts in it, and of the page it is.
#pragma once

#include "script/finding.h"
#include "script/islands.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kevra::page {

class PageFiles;

/// What a document is and where it stands.
struct DocumentPlace {
    script::FileKind kind = script::FileKind::Script;
    std::string path; ///< absolute; empty for a document without a file, which has no links of its own
    std::string site; ///< the folder in which addresses that begin with '/' are looked for; empty: not known
};

/// Analyses documents on one thread, and keeps what it has seen of the files around them. Where pages are not
/// taken apart (the CMake option KEVRA_PAGES), only scripts are looked at.
class DocumentAnalysis {
public:
    DocumentAnalysis();
    ~DocumentAnalysis();

    /// Ascending by place.
    [[nodiscard]] std::vector<script::Finding> run(std::string_view text, const DocumentPlace &place);
    /// Those of the page without the scripts in it; none for what is no page. Ascending by place.
    [[nodiscard]] std::vector<script::Finding> ofPage(std::string_view text, const DocumentPlace &place);

private:
    std::unique_ptr<PageFiles> m_files;
};

/// By the ending of its name: what has scripts or is a page.
[[nodiscard]] bool isAnalysed(std::string_view path);

} // namespace kevra::page
