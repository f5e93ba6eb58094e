// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/disk_notice.h"

#include "fakes/document_fixture.h"

namespace kevra {
namespace {

TEST(DiskNotice, AnnouncesEachChangeOnceAndClearsIt)
{
    constexpr auto changed = "The file on disk has been changed by another program.";
    constexpr auto gone = "The file is no longer on disk.";
    DocumentFixture fixture;
    DiskNotice notice(fixture.file);
    const auto theirs = [&] { std::ignore = fixture.files.write("/a.htm", "theirs"); };
    const auto ours = [&] { std::ignore = fixture.file.save("text", "/a.htm", ReadOnlyFiles::Refuse); };
    struct {
        const char *name;
        std::function<void()> happens;
        const char *box;
        std::optional<std::string_view> notice;
    } const cases[] = {
        {"new", [] {}, "", {}},
        {"saved", ours, "", {}},
        {"changed", theirs, "", changed},
        {"no more", [] {}, changed, {}},
        {"changed again", theirs, "a picture", changed},
        {"removed", [&] { fixture.files.remove("/a.htm"); }, "", gone},
        {"saved over", ours, gone, ""},
        {"changed after the save", theirs, "", changed},
        {"saved while the box says something else", ours, "a picture", {}},
    };
    for (const auto &c : cases) {
        c.happens();
        EXPECT_EQ(notice.next(c.box), c.notice) << c.name;
        EXPECT_EQ(notice.isCurrent(), fixture.file.diskState() != DiskState::Unchanged) << c.name;
    }
}

} // namespace
} // namespace kevra
