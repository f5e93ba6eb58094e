// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/startup.h"

#include "fakes/desktop.h"
#include "fakes/files.h"
#include "fakes/messages.h"
#include "fakes/shell.h"
#include "settings/setting_access.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kevra {
namespace {

/// Notes every key that is read or written among the calls to windows and files.
class LoggedStore : public FakeSettingsStore {
public:
    explicit LoggedStore(CallLog &log)
        : m_log(log)
    {
    }
    std::string getSetting(std::string_view app, std::string_view section, std::string_view key,
        std::string_view fallback) const override
    {
        m_log.push_back(std::string(key));
        return FakeSettingsStore::getSetting(app, section, key, fallback);
    }
    void saveSetting(
        std::string_view app, std::string_view section, std::string_view key, std::string_view value) override
    {
        if (app == settingsApplication)
            m_log.push_back(std::string(key) + "=" + std::string(value));
        FakeSettingsStore::saveSetting(app, section, key, value);
    }

private:
    CallLog &m_log;
};

struct Start {
    FakeShell shell;
    LoggedStore store{shell.log};
    DocumentState document;
    ApplicationState application;
    OptionsShown shown;
    StoredSettings settings{store, document, application, shown, shell};

    void run(std::string commandLine)
    {
        Startup(document, application, settings, shell, shell).startup(std::move(commandLine));
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
        testing::ElementsAre("tempfol", "aptorun", "exemenu", "fontface", "fontsize", "edsize", "maximise",
            "wintype", "show main", "codecolor", "ifcolor", "padl", "padt", "padw", "padh", "ifcoms",
            "ifdebug", "ifif", "autosave", "automins", "iffso", "open my page.htm", "if1", "notices",
            "if1=no", "offer recovery"));
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
