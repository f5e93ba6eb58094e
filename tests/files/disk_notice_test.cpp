// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/disk_notice.h"

#include "fakes/document_desk.h"

namespace kevra {
namespace {

TEST(DiskNotice, TellsEachChangeOnceAndTakesItBack)
{
    constexpr auto changed = "The file on disk has been changed by another program.";
    constexpr auto gone = "The file is no longer on disk.";
    DocumentDesk desk;
    DiskNotice notice(desk.file);
    const auto theirs = [&] { std::ignore = desk.files.write("/a.htm", "theirs"); };
    const auto ours = [&] { std::ignore = desk.file.save("text", "/a.htm", Existing::KeepReadOnly); };
    struct {
        const char *name;
        std::function<void()> happens;
        const char *box;
        std::optional<std::string_view> told;
    } const cases[] = {
        {"new", [] {}, "", {}},
        {"saved", ours, "", {}},
        {"changed", theirs, "", changed},
        {"no more", [] {}, changed, {}},
        {"changed again", theirs, "a picture", changed},
        {"removed", [&] { desk.files.remove("/a.htm"); }, "", gone},
        {"saved over", ours, gone, ""},
        {"changed after the save", theirs, "", changed},
        {"saved while the box says something else", ours, "a picture", {}},
    };
    for (const auto &c : cases) {
        c.happens();
        EXPECT_EQ(notice.next(c.box), c.told) << c.name;
        EXPECT_EQ(notice.stands(), desk.file.diskState() != DiskState::Unchanged) << c.name;
    }
}

} // namespace
} // namespace kevra
