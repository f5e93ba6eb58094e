// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/external_program.h"

#include "fakes/desktop.h"
#include "fakes/files.h"
#include "fakes/messages.h"
#include "fakes/processes.h"
#include "fakes/views.h"
#include "settings/setting_access.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

struct Desk {
    ApplicationState state;
    FakeSettingsStore settings;
    FakeFileStore files;
    FakeProcessStart processes;
    FakeToolView tools;
    FakeMessages messages;
    ExternalProgram program{{state, settings, files, processes, tools, messages}};
};

TEST(ExternalProgram, IsTakenWhenItExistsAndIsAProgram)
{
    constexpr auto noFile = "The file doesn't exist or the path is wrong.";
    constexpr auto noProgram = "That file is not an executable program.";
    struct {
        std::string path;
        const char *message;
    } const cases[] = {
        {"", ""},
        {"/opt/gone.exe", noFile},
        {"/opt", noFile},
        {"C:\\tools\\run.bat", noProgram},
        {"/opt/run.sh", noProgram}, // may be run, but has an extension
        {"/opt/README", noProgram},
        {"C:\\tools\\paint.exe", ""},
        {"/opt/my paint", ""},
        {"/opt/paint-2.8/paint", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path);
        Desk desk;
        desk.files.folders = {"/opt"};
        if (!c.path.empty() && c.message != noFile)
            desk.files.files[c.path] = "";
        desk.processes.runnable = {"/opt/run.sh", "/opt/my paint", "/opt/paint-2.8/paint"};
        desk.program.SetExternalProgram(c.path);
        EXPECT_EQ(desk.messages.last(), c.message);
        const bool taken = !c.path.empty() && desk.messages.shown.empty();
        EXPECT_EQ(desk.state.programPath, taken ? c.path : "none");
        EXPECT_EQ(readSetting(desk.settings, keys::programPath), taken ? c.path : "no");
    }
}

TEST(ExternalProgram, IsStartedOrTheUserIsToldWhyNot)
{
    Desk desk;
    desk.program.RunExternalProgram();
    desk.state.programPath = "/opt/moved";
    desk.processes.starts = false;
    desk.program.RunExternalProgram();
    desk.processes.starts = true;
    desk.program.RunExternalProgram();
    EXPECT_EQ(desk.processes.started, (std::vector<std::string>{"/opt/moved", "/opt/moved"}));
    EXPECT_EQ(desk.messages.texts(),
        (std::vector<std::string>{"There is no program set to run. Go to Options > Settings to choose one.",
            "Failure opening the specified program. Check to make sure it hasn't been moved."}));
}

TEST(ExternalProgram, MenuTextHasEightCharactersAtMost)
{
    const std::string eight
        = "\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84"; // in 16 bytes
    Desk desk;
    for (const auto &[text, message] :
        {std::pair(eight, ""), {"", ""}, {"Uploaders", "Maximum 8 letters."}}) {
        desk.program.SetExternalMenuText(text);
        EXPECT_EQ(desk.messages.last(), message);
        EXPECT_EQ(readSetting(desk.settings, keys::programMenu), eight);
        EXPECT_EQ(desk.tools.programMenu, eight);
    }
}

} // namespace
} // namespace kevra
