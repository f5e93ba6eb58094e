// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/external_program.h"

#include "fakes/desktop.h"
#include "fakes/files.h"
#include "fakes/messages.h"
#include "fakes/processes.h"
#include "fakes/views.h"
#include "settings/keys.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

struct Fixture {
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
        {"/opt/run.sh", noProgram}, // executable, but with an extension
        {"/opt/README", noProgram},
        {"C:\\tools\\paint.exe", ""},
        {"/opt/my paint", ""},
        {"/opt/paint-2.8/paint", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path);
        Fixture fixture;
        fixture.files.folders = {"/opt"};
        if (!c.path.empty() && c.message != noFile)
            fixture.files.files[c.path] = "";
        fixture.processes.runnable = {"/opt/run.sh", "/opt/my paint", "/opt/paint-2.8/paint"};
        fixture.program.SetExternalProgram(c.path);
        EXPECT_EQ(fixture.messages.last(), c.message);
        const bool taken = !c.path.empty() && fixture.messages.shown.empty();
        EXPECT_EQ(fixture.state.programPath, taken ? c.path : "none");
        EXPECT_EQ(readSetting(fixture.settings, keys::programPath), taken ? c.path : "no");
    }
}

TEST(ExternalProgram, IsStartedOrTheFailureIsReported)
{
    Fixture fixture;
    fixture.program.RunExternalProgram();
    fixture.state.programPath = "/opt/moved";
    fixture.processes.starts = false;
    fixture.program.RunExternalProgram();
    fixture.processes.starts = true;
    fixture.program.RunExternalProgram();
    EXPECT_EQ(fixture.processes.started, (std::vector<std::string>{"/opt/moved", "/opt/moved"}));
    EXPECT_EQ(fixture.messages.texts(),
        (std::vector<std::string>{"There is no program set to run. Go to Options > Settings to choose one.",
            "Failure opening the specified program. Check to make sure it hasn't been moved."}));
}

TEST(ExternalProgram, MenuTextHasEightCharactersAtMost)
{
    const std::string eight
        = "\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84"; // in 16 bytes
    Fixture fixture;
    for (const auto &[text, message] :
        {std::pair(eight, ""), {"", ""}, {"Uploaders", "Maximum 8 letters."}}) {
        fixture.program.SetExternalMenuText(text);
        EXPECT_EQ(fixture.messages.last(), message);
        EXPECT_EQ(readSetting(fixture.settings, keys::programMenu), eight);
        EXPECT_EQ(fixture.tools.programMenu, eight);
    }
}

} // namespace
} // namespace kevra
