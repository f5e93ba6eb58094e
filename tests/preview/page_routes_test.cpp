// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/page_routes.h"

#include "preview/public_address.h"

#ifdef _WIN32
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#endif
#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

namespace kevra {
namespace {

std::string sign(std::string_view text)
{
    std::ostringstream digits;
    for (int half = 0; half < 2; ++half)
        digits << std::hex << std::setfill('0') << std::setw(16) << std::hash<std::string_view>{}(text);
    return digits.str();
}

PageAddress file(const std::string &path, const std::string &query = {})
{
    return {"file", "", path, path + query};
}

std::string kindOf(const PageAnswer &answer)
{
    constexpr const char *names[] = {"refused", "file", "file by the engine", "web"};
    return names[static_cast<int>(answer.kind)];
}

/// What a request of a page's comes to when it follows every redirect.
std::string outcome(PageRoutes &routes, Resource kind, PageAddress address)
{
    const auto asked = address;
    for (int steps = 0; steps < 5; ++steps) {
        if (const auto next = routes.next(kind, address); next != address) {
            if (!next)
                return "refused";
            address = *next;
            continue;
        }
        const auto answer = routes.answer(address);
        if (answer.kind != PageAnswer::Kind::Elsewhere)
            return kindOf(answer);
        address = routes.next(kind, answer.address).value_or(asked);
        return address == answer.address ? "file by the engine" : "round in a circle";
    }
    return "round in a circle";
}

TEST(PageRoutes, EveryPartComesTheWayThatKeepsItsContent)
{
    PageRoutes routes(sign);
    struct {
        const char *name;
        Resource kind;
        PageAddress address;
        const char *outcome;
    } const cases[] = {
        {"the page", Resource::MainFrame, file("/s/a.html"), "file"},
        {"a frame with a query", Resource::SubFrame, file("/s/b.html", "?x=1#y"), "file"},
        {"a picture", Resource::Image, file("/s/a.gif", "?v=2"), "file by the engine"},
        {"a document as a picture", Resource::Image, file("/s/a.html"), "file by the engine"},
        {"a font", Resource::Font, file("/s/a.ttf"), "file"},
        {"a module", Resource::Script, file("/s/a.MJS"), "file"},
        {"data as a script", Resource::Script, file("/s/a.json"), "file by the engine"},
        {"a picture of the web", Resource::Image, {"https", "example.org:8443", "/a b", "/a%20b?q"}, "web"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(outcome(routes, c.kind, c.address), c.outcome);
    }
}

TEST(PageRoutes, AnAddressIsGoodForOneUseAlone)
{
    PageRoutes routes(sign);
    const auto page = routes.document(file("/s/a.html"));
    const auto picture = routes.next(Resource::Image, file("/s/a.gif")).value();
    const auto web = routes.next(Resource::Image, {"https", "example.org", "/a", "/a?b"}).value();
    struct {
        const char *name;
        PageAddress address;
        const char *answer;
    } const cases[] = {
        {"the page itself", page, "file"},
        {"a file beside it", {page.scheme, page.host, "/s/secret", "/s/secret"}, "refused"},
        {"the page to be shared", {"kevra-part", page.host, page.path, page.rest}, "refused"},
        {"a picture to be shared", {"kevra-part", picture.host, picture.path, picture.rest}, "refused"},
        {"the web as it was allowed", web, "web"},
        {"other words to the same server", {web.scheme, web.host, "/a", "/a?secret"}, "refused"},
        {"another server", {web.scheme, sign("") + ".example.com", "/a", "/a?b"}, "refused"},
        {"a server without a signature", {web.scheme, "example.org", "/a", "/a?b"}, "refused"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(kindOf(routes.answer(c.address)), c.answer);
    }
    const auto pass = routes.answer(picture).address;
    EXPECT_EQ(routes.next(Resource::Image, pass), pass);
    EXPECT_NE(routes.next(Resource::Image, pass), pass) << "a second time";
    EXPECT_EQ(plainAddress(web), (PageAddress{"https", "example.org", "/a", "/a?b"}));
}

TEST(PageRoutes, WhatIsOnItsWayForThePageBeforeGoesNowhere)
{
    PageRoutes before(sign);
    PageRoutes now([](std::string_view text) { return sign("another key" + std::string(text)); });
    const PageAddress web{"https", "example.org", "/a", "/a?b"};
    for (const auto &asked :
        {before.document(file("/s/a.html")), before.next(Resource::Image, web).value()}) {
        EXPECT_EQ(before.next(Resource::MainFrame, asked), asked);
        EXPECT_EQ(now.next(Resource::MainFrame, asked), std::nullopt);
    }
}

TEST(PublicAddress, LeavesOutWhatIsHereAndAround)
{
    struct {
        const char *address;
        bool open;
    } const cases[] = {{"::ffff:8.8.8.8", true}, {"::ffff:172.15.255.255", true}, {"::ffff:172.32.0.0", true},
        {"::ffff:100.128.0.1", true}, {"2a00:1450:4001::1", true}, {"::ffff:127.8.9.1", false},
        {"::ffff:0.0.0.0", false}, {"::ffff:10.1.2.3", false}, {"::ffff:172.31.255.255", false},
        {"::ffff:192.168.0.1", false}, {"::ffff:169.254.169.254", false}, {"::ffff:100.64.0.1", false},
        {"::ffff:224.0.0.251", false}, {"::ffff:255.255.255.255", false}, {"::1", false}, {"::", false},
        {"fe80::1", false}, {"fd00::1", false}, {"ff02::fb", false}, {"::127.0.0.1", false},
        {"64:ff9b::7f00:1", false}, {"2002:7f00:1::", false}, {"2001:0:1::", false}, {"2001:db8::1", false}};
    for (const auto &c : cases) {
        NetworkAddress bytes{};
        ASSERT_EQ(inet_pton(AF_INET6, c.address, bytes.data()), 1) << c.address;
        EXPECT_EQ(isPublic(bytes), c.open) << c.address;
    }
}

} // namespace
} // namespace kevra
