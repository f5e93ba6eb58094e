// SPDX-License-Identifier: GPL-3.0-or-later
// The user guide against the program's own tables, so that neither goes its way without the other.
#include "app/commands.h"
#include "checker/checker.h"
#include "settings/entry_groups.h"
#include "settings/options.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace kevra {
namespace {

std::string helpPage()
{
    std::ifstream file(KEVRA_TESTS_FOLDER "/../assets/pages/kevrahelp.html");
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(HelpPage, NamesEveryCommandKeySettingAndFinding)
{
    const auto page = helpPage();
    const auto expectNamed
        = [&](std::string_view text) { EXPECT_NE(page.find(text), std::string::npos) << text; };
    for (const auto &row : menuRows()) {
        std::string caption(row.caption == "popup" ? "" : row.caption);
        std::erase(caption, '&');
        expectNamed(caption);
        for (std::string keys(row.shortcut); !keys.empty();) {
            const auto end = std::min(keys.find("; "), keys.size());
            expectNamed("<kbd>" + keys.substr(0, end) + "</kbd>");
            keys.erase(0, end + 2);
        }
    }
    std::vector<std::string_view> headings{groups::tempFolder.heading, groups::interval.heading,
        groups::fontFace.heading, groups::fontSize.heading};
    for (const auto &row : optionRows)
        headings.push_back(row.group.heading);
    for (const auto heading : headings)
        expectNamed(heading.substr(0, heading.find(" (see Help)")));

    constexpr auto faults = "MsgBox \"a\r\nb(\r\nc ,d\r\ne=f\r\nIf g\r\nFor\r\nSub\r\nDo\r\n"
                            "' FileSystemObject WScript.Shell\r\nCopyFile h\r\nRegRead(i\r\nReadLine\r\n";
    const auto findings = checkAll(faults, true);
    EXPECT_GE(findings.size(), 12U);
    for (const auto &finding : findings)
        expectNamed(finding.message.substr(0, finding.message.find_first_of("0123456789")));
}

TEST(HelpPage, LinksLeadSomewhere)
{
    const auto page = helpPage();
    constexpr std::string_view opening = "href=\"";
    for (auto at = page.find(opening); at != std::string::npos; at = page.find(opening, at)) {
        at += opening.size();
        const auto target = page.substr(at, page.find('"', at) - at);
        ASSERT_EQ(target.substr(0, 1), "#") << target;
        EXPECT_NE(page.find("id=\"" + target.substr(1) + '"'), std::string::npos) << target;
    }
}

} // namespace
} // namespace kevra
