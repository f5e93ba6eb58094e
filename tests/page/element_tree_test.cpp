// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/element_tree.h"
#include "page/marked_page.h"
#include "page/server_parts.h"
#include "script/markup.h"

#include <algorithm>
#include <array>
#include <random>

namespace kevra::page {
namespace {

std::string_view part(std::string_view text, TextRange range)
{
    return text.substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()));
}

bool isLetter(char c)
{
    return c >= 'a' && c <= 'z';
}

/// Tags of every kind in no order, between bytes that are hard to count.
std::string soup(std::mt19937 &random)
{
    using namespace std::string_view_literals;
    static constexpr std::array pieces{"<p>"sv, "</p>"sv, "<b id=x>"sv, "</b>"sv, "<I>"sv, "</i>"sv,
        "<table>"sv, "</table>"sv, "<tr>"sv, "<td class='a &amp; b'>"sv, "</td>"sv, "<DIV title=\"\r\n>\">"sv,
        "</div>"sv, "<br/>"sv, "<svg>"sv, "<path d=1 />"sv, "</svg>"sv, "<my-tag a=1 A=2>"sv, "</my-tag>"sv,
        "<script>if (a<b) c</script>"sv, "<style>a>b"sv, "</style>"sv, "<!-- <p> -->"sv, "<![CDATA[x]]>"sv,
        "<select>"sv, "<option value=>"sv, "</select>"sv, "<template>"sv, "</template>"sv, "<image src=q>"sv,
        "<a href=<%=x%>>"sv, "</a>"sv, "<% If a Then %>"sv, "<?php echo '<b>' ?>"sv, "\r\n"sv, "\r"sv, "\0"sv,
        "\xff\xfe"sv, "\xc3\xa9"sv, "\xed\xa0\x80"sv, "&eacute;"sv, "&#0;"sv, "&lt"sv, "< "sv, "</"sv,
        "text"sv, "<body>"sv, "<html lang=en>"sv, "<head>"sv, "<title>"sv, "</title>"sv, "<frameset>"sv,
        "<form>"sv, "<h1>"sv, "</h2>"sv, "<font color=red>"sv, "</font>"sv, "<!DOCTYPE html>"sv, "<p a='"sv,
        "<input "sv};
    std::string text;
    for (auto count = 1 + random() % 40; count > 0; --count)
        text += pieces[random() % pieces.size()];
    return text;
}

TEST(ElementTree, PlacesAreThoseOfTheBytes)
{
    std::mt19937 random(1);
    for (int round = 0; round < 3000; ++round) {
        const auto written = soup(random);
        SCOPED_TRACE(written);
        const auto tree = ElementTree::parse(written);
        const auto text = withoutServerParts(written, findServerParts(written));
        const auto &elements = tree.elements();
        ASSERT_FALSE(elements.empty());
        for (std::size_t i = 0; i < elements.size(); ++i) {
            const auto &element = elements[i];
            ASSERT_LE(element.parent, i == 0 ? 0 : i - 1);
            if (element.startTag.empty())
                continue;
            const auto tag = script::readTag(text, static_cast<std::size_t>(element.startTag.start));
            EXPECT_TRUE(script::sameWord(tag.name, element.tag == "img" ? "image" : element.tag));
            EXPECT_EQ(tag.range, element.startTag);
            EXPECT_GE(element.whole.end, element.startTag.end);
            EXPECT_LE(element.whole.end, std::ssize(text));
            const auto end = script::readTag(text, static_cast<std::size_t>(element.endTag.start));
            EXPECT_TRUE(element.endTag.empty() || script::sameWord(end.name, tag.name));
            for (const auto &attribute : element.attributes) {
                const bool plain = std::ranges::all_of(attribute.name, isLetter);
                EXPECT_TRUE(!plain || script::sameWord(part(text, attribute.nameRange), attribute.name));
            }
        }
    }
}

TEST(ElementTree, EveryOffsetHasTheElementThatBeginsLastAroundIt)
{
    std::mt19937 random(2);
    for (int round = 0; round < 500; ++round) {
        const auto text = soup(random);
        SCOPED_TRACE(text);
        const auto tree = ElementTree::parse(text);
        for (Offset offset = 0; offset < std::ssize(text); ++offset) {
            const Element *innermost = nullptr;
            for (const auto &element : tree.elements()) {
                const bool holds = element.whole.start <= offset && offset < element.whole.end;
                if (holds && (innermost == nullptr || element.whole.start > innermost->whole.start))
                    innermost = &element;
            }
            const auto found = tree.elementAt(offset);
            ASSERT_EQ(found ? &tree.elements()[*found] : nullptr, innermost) << offset;
        }
    }
}

TEST(ElementTree, WhatCostsParsersMostIsBounded)
{
    const auto repeated = [](int count, auto piece) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += piece(i);
        return text;
    };
    const struct {
        const char *name;
        std::string text;
    } cases[] = {
        {"deep", repeated(100'000, [](int) { return "<div>"; })},
        {"deep, with ends that do not count", repeated(50'000, [](int) { return "<div><table></div>"; })},
        {"deep inline", repeated(50'000, [](int) { return "<span><div></span>"; })},
        {"deep unknown", repeated(100'000, [](int) { return "<x-y/>"; })},
        {"attributes", "<p " + repeated(100'000, [](int i) { return "a" + std::to_string(i) + " "; }) + ">"},
        {"open formatting", repeated(20'000, [](int i) { return "<p><b id=" + std::to_string(i) + ">"; })},
        {"formatting across blocks", repeated(50'000, [](int) { return "<b><div></b>"; })},
        {"comments", repeated(100'000, [](int) { return "<!-- -"; })},
        {"deep unknown, with other ends", repeated(10'000, [](int) { return "<x-y></x-z>"; })},
        {"raw text in a drawing", "<svg><style>" + repeated(10'000, [](int) { return "<g></x>"; })},
        {"title of a drawing", "<svg><title>" + repeated(10'000, [](int) { return "<div>"; })},
        {"raw text", repeated(100'000, [](int) { return "<title></titl>"; })},
        {"server parts", repeated(100'000, [](int) { return "<% <? "; })},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const auto tree = ElementTree::parse(c.text + "<p>last</p>");
        std::vector<std::size_t> depth;
        for (const auto &element : tree.elements()) {
            depth.push_back(depth.empty() ? 0 : depth[element.parent] + 1);
            ASSERT_LT(depth.back(), 1100U);
        }
    }
}

TEST(MarkedPage, LeadsBackToTheText)
{
    std::mt19937 random(3);
    for (int round = 0; round < 1000; ++round) {
        const auto text = soup(random);
        SCOPED_TRACE(text);
        std::vector<std::string> wanted;
        const auto tree = ElementTree::parse(text);
        for (const auto i : tree.byPlace())
            wanted.push_back(std::to_string(tree.elements()[i].startTag.start));
        std::vector<std::string> found;
        const auto marked = ElementTree::parse(MarkedPage(text).text("data-at"));
        for (const auto i : marked.byPlace()) {
            const auto *attribute = marked.elements()[i].find("data-at");
            if (attribute != nullptr)
                found.push_back(attribute->value);
        }
        EXPECT_EQ(found, wanted);
    }
}

TEST(MarkedPage, LeavesServerPartsOut)
{
    const auto m = std::string(serverPartMark);
    const struct {
        const char *name;
        std::string text;
        std::string marked;
    } cases[] = {
        {"in text", "<p>a<%=b%>c</p>", "<p at=\"0\">a" + m + "      c</p>"},
        {"in a tag", "<p <%=b%>>c</p>", "<p at=\"0\"       >c</p>"},
        {"in a value", "<a href=\"<%=b%>\">c</a>", "<a at=\"0\" href=\"      \">c</a>"},
        {"in a bare value", "<a href=<%=b%> id=c>d</a>", "<a at=\"0\" href=xxxxxx id=c>d</a>"},
        {"in a comment", "<p><!-- <%=b%> --></p>", "<p at=\"0\"><!--        --></p>"},
        {"in a script", "<script><%=b%></script>", "<script at=\"0\">      </script>"},
        {"before the page", "<%@ a %><!DOCTYPE html><p>b", "        <!DOCTYPE html><p at=\"23\">b"},
        {"between rows", "<table><% b %><tr><td><?php c?>",
            "<table at=\"0\">       <tr at=\"14\"><td at=\"18\">" + m + "         "},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(MarkedPage(c.text).text("at"), c.marked);
    }
}

} // namespace
} // namespace kevra::page
