// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/document_findings.h"
#include "page/page_analysis.h"
#include "script/fixes.h"

#include <map>
#include <set>

namespace kevra::page {
namespace {

struct FilesInMemory : PageFiles {
    std::set<std::string> names;
    std::map<std::string, TargetNames> targets;

    bool exists(const std::string &path) override { return names.contains(path) || targets.contains(path); }
    std::optional<DisplayedSize> pictureSize(const std::string &path) override
    {
        return exists(path) ? std::optional(DisplayedSize{40, 30}) : std::nullopt;
    }
    const TargetNames *targetsOf(const std::string &path) override
    {
        const auto found = targets.find(path);
        return found == targets.end() ? nullptr : &found->second;
    }
};

/// "KV4001 a.png" for each finding, with the text it is about.
std::string findingsOf(std::string_view page, std::string folder = "/site/page")
{
    FilesInMemory files;
    files.names = {"/site/page/a.png", "/site/page/a b.css", "/site/up.html", "/site/page/x"};
    files.targets = {{"/site/page/other.html", {"here"}}};
    std::string all;
    for (const auto &finding : analysePage(page, {std::move(folder), "/site"}, files)) {
        const auto &range = finding.range;
        all += (all.empty() ? "" : ", ") + script::code(finding.rule) + ' '
            + std::string(
                page.substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length())));
    }
    return all;
}

TEST(PageAnalysis, NamesWhatIsBrokenAndNothingElse)
{
    const struct {
        const char *name;
        const char *page;
        const char *findings;
    } cases[] = {
        {"files that are there",
            R"(<a href="a.png?v=1"><a href=".\x"><link href='a%20b.css'></a></a><a href="../up.html#"></a><a href="/up.html"></a>)",
            ""},
        {"addresses of other kinds",
            R"(<a href="https://a/b"></a><a href="mailto:a@b"></a><a href="//a/b"></a><a href="C:\a"></a><a href=""></a><a href="{{ a }}"></a><a href="<<file>>"></a>)",
            ""},
        {"a missing file", R"(<a href=" b.png#x">t</a>)", "KV4001  b.png#x"},
        {"the case of letters", R"(<img alt="" width=1 src=A.png>)", "KV4001 A.png"},
        {"one of a source set", R"(<img alt="" srcset="a.png 1x, b.png 2x">)", "KV4001 a.png 1x, b.png 2x"},
        {"in a drawing", R"(<svg><image href="a.png"/><image href="b.png"/></svg>)", "KV4001 b.png"},
        {"in styles",
            R"(<style>/* url(no) */ @import "b.css"; p { background: url( 'a.png' ), url(c.png) }</style>)",
            "KV4001 b.css, KV4001 c.png"},
        {"with a base", R"(<base href="../"><a href="up.html"></a><a href="a.png"></a><a href="#x"></a>)",
            "KV4001 a.png"},
        {"with a base elsewhere", R"(<base href="https://a/"><a href="b.png"></a><a href="/b.png"></a>)", ""},
        {"with the server's base", R"(<base href="<%=a%>/"><a href="b.png"></a>)", ""},
        {"made by a server", R"(<a href="<%=b%>.png"></a><img src="b<?= c ?>">)", ""},
        {"places in the page",
            R"(<p id="a b"><a name=c></a><a href="#a%20b"></a><a href="#c"></a><a href="#TOP"></a><a href="#/r"></a><a href="#d"></a>)",
            "KV4002 #d"},
        {"places in others",
            R"(<a href="other.html#here"></a><a href="other.html#there"></a><a href="a.png#xy"></a>)",
            "KV4002 other.html#there"},
        {"pictures", R"(<img src="a.png"><img src="a.png" alt="" height=3><img role=none width=1>)",
            "KV4003 <img src=\"a.png\">, KV4004 <img src=\"a.png\">"},
        {"ids", R"(<p id=a></p><template><p id=a></template><p id=a>)", "KV4005 a"},
        {"ids in branches", R"(<% If a Then %><p id=a><% Else %><p id=a><% End If %>)", ""},
        {"end tags that may be left out",
            "<ul><li>a<li>b</ul><p>a<p>b<table><tr><td>a<td>b<tr><th>c</table><dl><dt>a<dd>b</dl>"
            "<select><option>a<option>b</select><svg><path d=1 /></svg><br/><x:y>",
            ""},
        {"empty in a drawing", R"(<div><svg><title/><style/><g/></svg></div><p id=a></p><a href="#a"></a>)",
            ""},
        {"not closed", "<div><span>a</div><b>c", "KV4006 <span>, KV4006 <b>"},
        {"closed by a slash", "<div/>a", "KV4006 <div/>"},
        {"overlapping", "<b>a<i>b</b>c</i>", "KV4007 </i>"},
        {"over paragraphs", "<p><b>a<p>b</b>", "KV4007 </b>"},
        {"ended before", "<p>a<ul><li>b</ul></p>", "KV4008 </p>"},
        {"never begun", "<td>a</td></div></br>", "KV4008 </div>, KV4008 </br>"},
        {"comments and scripts",
            "<!-- <div> </b> --><script>'<b>'</script><script>document.write('<i>')</script></i>", ""},
        {"silenced on its line", "<b>a <!-- kevra: off KV4006 -->\r\n<i>b", "KV4006 <i>"},
        {"silenced for an element", "<!-- kevra: off -->\r\n<div><b>a</div>\r\n<i>b", "KV4006 <i>"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(findingsOf(c.page), c.findings);
    }
    EXPECT_EQ(findingsOf(R"(<a href="b.png"></a><a href="#b"></a>)", ""), "KV4002 #b");
}

TEST(PageAnalysis, ReachesTheEndOfPagesMadeToTakeLong)
{
    const struct {
        const char *name;
        const char *start;
        std::string_view piece;
        const char *end;
    } cases[] = {
        {"open elements", "", "<div>", ""},
        {"crossed elements", "", "<div><b></div></i>", ""},
        {"written by scripts", "<script>document.write('", "<", "')</script>"},
        {"silenced on one line", "<b>", "a<!-- kevra: off KV4006 -->", ""},
        {"styles", "<style>", "url(", "</style>"},
        {"server parts", "", "<? ", ">"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        std::string page = c.start;
        for (int i = 0; i < 50'000; ++i)
            page += c.piece;
        EXPECT_TRUE(findingsOf(page + c.end + "<img>").ends_with("KV4003 <img>"));
    }
}

TEST(PageAnalysis, FixesLeaveAPageInOrder)
{
    FilesInMemory files;
    files.names = {"/a.png"};
    const auto analyse = [&](std::string_view text) { return analysePage(text, {"/", ""}, files); };
    const auto fixed = script::fixAll("<img><p><IMG src=a.png/><img src='a.png' />", analyse);
    EXPECT_EQ(fixed.text,
        "<img alt=\"\"><p><IMG src=a.png/ alt=\"\"><img src='a.png' alt=\"\" width=\"40\" height=\"30\" />");
}

TEST(PictureSize, ComesFromTheHeader)
{
    using namespace std::string_view_literals;
    const struct {
        std::string_view head;
        std::optional<DisplayedSize> size;
    } cases[] = {
        {"\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\1\2\0\0\0\7"sv, DisplayedSize{258, 7}},
        {"GIF89a\2\1\7\0"sv, DisplayedSize{258, 7}},
        {"\xFF\xD8\xFF\xE0\0\4ab\xFF\xC2\0\x11\x08\0\7\1\2\3\1"sv, DisplayedSize{258, 7}},
        {"\xFF\xD8\xFF\xE1\0\x8"
         "Exif\0\0\xFF\xC2\0\x11\x08\0\7\1\2\3\1"sv,
            std::nullopt},
        {"\xFF\xD8\xFF\xE0\0\0\xFF"sv, std::nullopt},
        {"GIF89a\2"sv, std::nullopt},
    };
    for (const auto &c : cases)
        EXPECT_EQ(sizeInHeader(c.head), c.size);
}

} // namespace
} // namespace kevra::page
