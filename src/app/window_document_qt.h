// SPDX-License-Identifier: GPL-3.0-or-later
// A document of the program with what belongs to it alone: its control and its recovery records.
#pragma once

#include "document/document.h"
#include "editor/editor_control_qt.h"
#include "storage/recovery_store_posix.h"

#include <functional>
#include <memory>

namespace kevra {

class WindowDocument : public QObject {
    std::unique_ptr<EditorControl> m_unshown; ///< the control, until a window shows it

public:
    /// What all documents of the program share.
    struct Shared {
        EditorOptions &editorOptions;
        const ApplicationState &application;
        FileStore &files;
        BackupStore &backups;
    };

    WindowDocument(Shared shared, RecoveryStorePosix::Folders recordFolders);

    /// For the window that shows it, which owns it from then on.
    [[nodiscard]] std::unique_ptr<EditorControl> takeControl() { return std::move(m_unshown); }

    EditorControl &control;
    RecoveryStorePosix recovery;
    Document document;
    /// The record of the unsaved text can be written, or no longer can; set by the files.
    std::function<void()> recordOutcomeChanged;
};

} // namespace kevra
