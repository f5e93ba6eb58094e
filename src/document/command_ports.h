// SPDX-License-Identifier: GPL-3.0-or-later
// What the document's file commands depend on.
#pragma once

#include "desktop/file_dialogs.h"
#include "desktop/main_view.h"
#include "desktop/messages.h"
#include "document/application_state.h"
#include "document/document_parts.h"
#include "storage/backup_store.h"
#include "storage/file_store.h"

namespace kevra {

struct FileCommandPorts {
    DocumentParts document;
    ApplicationState &application;
    FileStore &files;
    BackupStore &backups;
    FileDialogs &dialogs;
    Messages &messages;
    MainView &main;
    ToolView &tools;
};

} // namespace kevra
