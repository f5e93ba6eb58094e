// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/document.h"

#include "document/save_commands.h"
#include "editor/memory_surface.h"
#include "fakes/document_fixture.h"
#include "storage/backup_store_posix.h"
#include "storage/file_store_posix.h"
#include "storage/recovery_store_posix.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace kevra {
namespace {

struct Program {
    Program() { std::filesystem::create_directories(folder); }
    ~Program() { std::filesystem::remove_all(folder); }
    [[nodiscard]] std::vector<std::string> leftBehind() const
    {
        BackupStorePosix store(folder + "/backups");
        RecoveryStorePosix left({folder, {}}, store);
        std::vector<std::string> texts;
        for (const auto &text : left.list())
            texts.push_back(left.open(text).value_or(RecoveryRecord{}).bytes);
        return texts;
    }

    std::string folder = testing::TempDir() + "two-documents";
    ApplicationState state;
    EditorOptions editorOptions;
    BackupStorePosix backups{folder + "/backups"};
    FileStorePosix files{folder + "/recovery", folder};
};

struct Opened {
    Opened(Program &running, const std::string &name)
        : program(running)
        , path(program.folder + '/' + name)
    {
    }
    void type(std::string_view text)
    {
        surface.Replace({surface.TextLength(), surface.TextLength()}, text);
        document.state.unsaved = true;
        document.journal.textChanged();
        document.journal.writeDown();
        document.journal.autosave();
        records.finish();
    }
    void save()
    {
        fake.dialogs.choices = {path};
        SaveCommands({document, program.state, program.files, program.backups, fake.dialogs, fake.messages,
                         fake.main, fake.tools})
            .save();
        records.finish();
    }
    void quit()
    {
        EXPECT_TRUE(document.journal.keepForNextStart());
        records.removeAutosave(document.state.autosaveWritten);
    }

    Program &program;
    std::string path;
    DocumentFixture fake;
    MemorySurface surface;
    RecoveryStorePosix records{{program.folder, {}}, program.backups};
    Document document{surface, program.editorOptions, program.state, program.files, program.backups, records};
};

TEST(Document, TwoInOneProcessKnowNothingOfEachOther)
{
    Program program;
    program.state.autosaveOn = true;
    {
        Opened page(program, "page.htm");
        Opened script(program, "script.vbs");
        page.type("<P>");
        script.document.state.scriptTools = true;
        EXPECT_FALSE(script.document.state.autosaveWritten);
        script.type("Dim a");
        page.save();
        EXPECT_EQ(program.files.read(page.path), "<P>");
        EXPECT_FALSE(program.files.fileExists(script.path));
        EXPECT_TRUE(script.document.state.unsaved && script.document.state.autosaveWritten);
        EXPECT_FALSE(page.document.state.unsaved || page.document.state.scriptTools);
        EXPECT_TRUE(page.document.file.holds("<P>") && !script.document.file.holds("Dim a"));
        EXPECT_FALSE(script.document.file.owns(page.path));
        page.type("unsaved");
        page.quit();
        EXPECT_TRUE(program.files.fileExists(program.folder + "/autosave-2.txt")) << "the other one's";
        script.save();
        EXPECT_EQ(program.files.read(script.path), "Dim a");
        script.quit();
    }
    EXPECT_EQ(program.leftBehind(), std::vector<std::string>{"<P>unsaved"});
}

} // namespace
} // namespace kevra
