// SPDX-License-Identifier: GPL-3.0-or-later
// A document with everything its file commands work with, in memory.
#pragma once

#include "document/command_ports.h"
#include "editor/memory_surface.h"
#include "fakes/dialogs.h"
#include "fakes/document_state.h"
#include "fakes/files.h"
#include "fakes/messages.h"
#include "fakes/views.h"

namespace kevra {

class FakeBackupStore : public BackupStore {
public:
    bool keep(const std::string &path, std::string_view bytes, KeptReason) override
    {
        if (broken)
            return false;
        kept[path] = bytes;
        return true;
    }

    std::map<std::string, std::string> kept;
    bool broken = false;
};

class FakeTextKeeper : public TextKeeper {
public:
    void textSaved() override { calls.emplace_back("saved"); }
    void textGivenUp() override { calls.emplace_back("given up"); }
    void fileLost() override { calls.emplace_back("file lost"); }
    bool keepForNextStart() override
    {
        calls.emplace_back("leaves");
        return keeps;
    }

    std::vector<std::string> calls;
    bool keeps = true;
};

struct DocumentFixture {
    explicit DocumentFixture(std::string_view text = {})
        : document(text)
    {
    }

    [[nodiscard]] DocumentParts parts() { return {document, state, file, keeper}; }
    [[nodiscard]] FileCommandPorts ports()
    {
        return {parts(), application, files, backups, dialogs, messages, main, tools};
    }

    MemorySurface document;
    FakeDocumentState state;
    ApplicationState application;
    FakeFileStore files;
    FakeBackupStore backups;
    DocumentFile file{files, backups};
    FakeTextKeeper keeper;
    FakeFileDialogs dialogs;
    FakeMessages messages;
    FakeMainView main;
    FakeToolView tools;
};

} // namespace kevra
