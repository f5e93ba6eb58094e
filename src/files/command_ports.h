// SPDX-License-Identifier: GPL-3.0-or-later
// What the commands on the document's file work with.
#pragma once

#include "editor/document_state.h"
#include "editor/main_view.h"
#include "editor/surface.h"
#include "files/backup_store.h"
#include "files/document_file.h"
#include "files/file_store.h"
#include "platform/file_dialogs.h"
#include "platform/messages.h"

namespace kevra {

struct FileCommandPorts {
    EditorSurface &document;
    DocumentState &state;
    ApplicationState &application;
    FileStore &files;
    DocumentFile &file;
    TextKeeper &keeper;
    BackupStore &backups;
    FileDialogs &dialogs;
    Messages &messages;
    MainView &main;
    ToolView &tools;
};

} // namespace kevra
