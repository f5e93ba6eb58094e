// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/startup.h"

#include "fakes/desktop.h"
#include "fakes/document_state.h"
#include "fakes/files.h"
#include "fakes/messages.h"
#include "fakes/shell.h"
#include "settings/keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kevra {
namespace {

struct Start {
    FakeShell shell;
    FakeSettingsStore store;
    FakeDocumentState document;
    ApplicationState application;
    OptionsShown shown;
    SettingsPersistence settings{store, document.options, application, shown, shell};

    void run(std::string commandLine)
    {
        Startup(document, application, settings, shell).run(std::move(commandLine));
        std::erase(shell.log, "use main window");
    }
};

TEST(Startup, EverythingHappensInItsFixedOrder)
{
    Start start;
    start.application.helpShowing = start.application.vbsInfoShowing = start.document.busyLoadingOrSaving
        = true;
    start.run("my page.htm");
    EXPECT_FALSE(start.application.helpShowing || start.application.vbsInfoShowing);
    EXPECT_FALSE(start.document.busyLoadingOrSaving);
    EXPECT_THAT(start.shell.log,
        testing::ElementsAre("maximise", "show main", "open my page.htm", "notices", "offer recovery"));
    EXPECT_THAT(start.store.read,
        testing::ElementsAre("tempfol", "aptorun", "exemenu", "fontface", "fontsize", "edsize", "wintype",
            "codecolor", "ifcolor", "padl", "padt", "padw", "padh", "ifcoms", "ifdebug", "ifif", "autosave",
            "automins", "iffso", "if1"));
    EXPECT_EQ(readSetting(start.store, keys::firstStart), "no");
    start.shell.log.clear();
    start.run("");
    EXPECT_THAT(start.shell.log, testing::Not(testing::Contains("notices"))) << "at the first start only";
}

TEST(Startup, AMissingTempFolderIsOnlyReported)
{
    ApplicationState application;
    application.tempFolder = "/gone";
    FakeFileStore files;
    FakeMessages messages;
    checkTempFolder(application, files, messages);
    files.folders.insert("/gone");
    checkTempFolder(application, files, messages);
    EXPECT_EQ(messages.shown,
        (std::vector{
            Message{"The setting for the Webpage Temp Folder, /gone, is pointing to a non-existent folder "
                    "and needs to be changed in Options -- Settings."}}));
}

} // namespace
} // namespace kevra
