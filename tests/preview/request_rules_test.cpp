// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/request_rules.h"

#include "fakes/files.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(RequestRules, PageGetsItsOwnPartsAndNothingElse)
{
    const PageScope scope{"/home/me/site/pages", "/home/me/site"};
    struct {
        const char *name;
        PageRequest request;
        bool offline;
        bool online;
    } const cases[] = {
        {"the page", {Resource::MainFrame, "file", "/home/me/site/pages/kevratemp.html"}, true, true},
        {"a page elsewhere", {Resource::MainFrame, "file", "/etc/passwd"}, false, false},
        {"a plain web page", {Resource::MainFrame, "http", ""}, false, false},
        {"image beside it", {Resource::Image, "file", "/home/me/site/pages/a.gif"}, true, true},
        {"image of the site", {Resource::Image, "file", "/home/me/site/images/a.gif"}, true, true},
        {"frame of the site", {Resource::SubFrame, "file", "/home/me/site/left.html"}, true, true},
        {"folder of a longer name", {Resource::Image, "file", "/home/me/site2/a.gif"}, false, false},
        {"image elsewhere", {Resource::Image, "file", "/home/me/a.gif"}, false, false},
        {"frame elsewhere", {Resource::SubFrame, "file", "/etc/passwd"}, false, false},
        {"script reads a file", {Resource::Other, "file", "/home/me/site/pages/a.txt"}, false, false},
        {"image over https", {Resource::Image, "https", ""}, false, true},
        {"a page of the web", {Resource::MainFrame, "https", ""}, false, true},
        {"a script asks over https", {Resource::Other, "https", ""}, false, false},
        {"a form over https", {Resource::SubFrame, "https", "", true}, false, false},
        {"image over http", {Resource::Image, "http", ""}, false, false},
        {"socket", {Resource::Other, "ws", ""}, false, false},
        {"secure socket", {Resource::Other, "wss", ""}, false, false},
        {"file transfer", {Resource::Image, "ftp", ""}, false, false},
        {"data in the page", {Resource::Image, "data", ""}, true, true},
        {"data as the page", {Resource::MainFrame, "data", ""}, false, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(allowsRequest(c.request, scope, Remote::Off), c.offline);
        EXPECT_EQ(allowsRequest(c.request, scope, Remote::On), c.online);
    }
}

TEST(RequestRules, SiteReachesAsHighAsItsIndexPages)
{
    FakeFileStore files;
    files.files = {{"/home/me/site/index.html", ""}, {"/home/me/site/a/index.htm", ""},
        {"/home/me/index.html", ""}, {"/other/index.html", ""}, {"/index.html", ""}};
    const auto site = [&](const char *folder) { return scopeOf(folder, files, "/home/me").site; };
    EXPECT_EQ(site("/home/me/site/a/b"), "/home/me/site");
    EXPECT_EQ(site("/home/me/site"), "/home/me/site");
    EXPECT_EQ(site("/home/me/plain/a"), "/home/me/plain/a");
    EXPECT_EQ(site("/other/a"), "/other");
    EXPECT_EQ(site("/other"), "/other");
}

} // namespace
} // namespace kevra
