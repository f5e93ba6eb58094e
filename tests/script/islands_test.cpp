// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/file_analysis.h"
#include "script/islands.h"
#include "script/parser.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace kevra;
using namespace kevra::script;

namespace {

/// Each island's pieces between bars, = before an expression, / before a part compiled apart.
std::string shown(std::string_view text, FileKind kind)
{
    std::string list;
    for (const auto &island : findIslands(text, kind)) {
        list
            += std::string(island.name) + (island.onServer ? "@" : "") + (island.incomplete ? "?" : "") + "|";
        for (const auto &piece : island.pieces) {
            list += piece.startsUnit ? "/" : "";
            list += piece.kind == PieceKind::Output ? "=" : "";
            list += std::string(text.substr(static_cast<std::size_t>(piece.range.start),
                        static_cast<std::size_t>(piece.range.length())))
                + "|";
        }
        for (const auto &file : island.includes)
            list += "<" + std::string(file.path);
        for (const auto &object : island.objects)
            list += "!" + std::string(object.name) + "=" + std::string(object.progId);
        list += ";";
    }
    return list;
}

} // namespace

TEST(ScriptIslands, FindsTheScriptOfEachKindOfFile)
{
    struct {
        FileKind kind;
        const char *text;
        const char *islands;
    } const cases[] = {
        {FileKind::Script, "x <% y", "|x <% y|;"},
        {FileKind::Page, "<p onclick='a'><SCRIPT Language=VBScript>x</Script><b onclick=y title='z'>",
            "|x|/y|;"},
        {FileKind::Page,
            "<script type='text/vbscript'>x</script><script>y</script><script language=\"VBS\">z</script>",
            "?|x|/z|;"},
        {FileKind::Page,
            "<script>y</script><a onclick='f()'><b onclick='vbscript: g'><i onclick='h' language=vbscript>",
            "?| g|/h|;"},
        {FileKind::Page,
            "<script language=vbscript>x</script><a onclick='return f();'><a onclick='a &quot;b&quot;'>",
            "|x|;"},
        {FileKind::Page,
            "<!-- <script language=vbscript>x</script> --><style><script language=vbscript></style>", ""},
        {FileKind::Page,
            "<script language=vbscript src='a.vbs'></script><a title='<script language=vbscript>'>",
            "|<a.vbs;"},
        {FileKind::ServerPage, "<%@ Language=VBScript %>a<% If x Then %>b<%= y %><% End If %>",
            "@| If x Then |= y | End If |;"},
        {FileKind::ServerPage, "<%@ Language=JScript %><% x(); %>", ""},
        {FileKind::ServerPage,
            "<!-- #include file=\"a.inc\" --><!-- <% x %> --><a b='<%=y%>'><script runat=server>z</script>",
            "@| x |=y|z|<a.inc;"},
        {FileKind::ServerPage,
            "<script language=vbscript>a = <%=b%></script><script language=vbscript>c</script>",
            "@|=b|;?|c|;"},
        {FileKind::ServerPage, "<% x", "@| x|;"},
        {FileKind::ServerPage, "<script language=vbscript>x</script><p onclick>", "|x|;"},
        {FileKind::ServerPage, "<t<%><%t", "@|><%t|;"},
        {FileKind::HostFile,
            "<package><job id='a'><object id='o' progid='P.Q'/><script language='VBScript' src='b.vbs'/>"
            "<script language='VBScript'><![CDATA[ x < y ]]></script></job><job id='c'><script "
            "language='JScript'>z</script>"
            "<script language='VBScript'>w</script></job></package>",
            "a| x < y |<b.vbs!o=P.Q;c?|w|;"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(shown(c.text, c.kind), c.islands) << c.text;
}

TEST(ScriptIslands, PlacesAreThoseOfTheFile)
{
    const std::string_view text = "<ul>\n<% For Each a In b %>\n<li><%= a( %></li>\n<% Next a %>\n<% Loop %>";
    const auto islands = findIslands(text, FileKind::ServerPage);
    ASSERT_EQ(islands.size(), 1U);
    const auto script = parse(text, islands[0].pieces);
    ASSERT_EQ(script.findings.size(), 3U);
    EXPECT_EQ(script.findings[0].rule, Rule::MissingOperand);
    EXPECT_EQ(script.textOf(script.findings[0].range), "(");
    EXPECT_EQ(script.textOf(script.findings[1].range), "a");
    EXPECT_EQ(script.textOf(script.findings[2].range), "Loop");
    // A block does not reach from one script element into the next.
    const std::string_view page
        = "<script language=vbscript>If a Then</script><script language=vbscript>End If</script>";
    EXPECT_EQ(parse(page, findIslands(page, FileKind::Page)[0].pieces).findings.size(), 2U);
    const std::string_view handler
        = "<b onclick='vbscript: If x Then Exit Sub'><script language=vbscript>Exit Sub</script>";
    const auto parsed = parse(handler, findIslands(handler, FileKind::Page)[0].pieces);
    ASSERT_EQ(parsed.findings.size(), 1U);
    EXPECT_GT(parsed.findings[0].range.start, static_cast<Offset>(handler.find("<script")));
    const std::string_view left = "<b onclick='vbscript: a : Exit Sub'><i onclick='vbscript: Exit Sub : b'>";
    EXPECT_EQ(
        std::ranges::count(analyseFile(left, FileKind::Page), Rule::UnreachableCode, &Finding::rule), 1);
}
