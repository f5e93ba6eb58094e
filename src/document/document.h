// SPDX-License-Identifier: GPL-3.0-or-later
// One open document: its text and state, its file, and the record of its unsaved text. It is independent of
// other documents; they share only the stores and the state of the program, which are passed in.
#pragma once

#include "document/application_state.h"
#include "document/document_parts.h"
#include "document/recovery_journal.h"
#include "storage/backup_store.h"
#include "storage/file_store.h"
#include "storage/record_store.h"

namespace kevra {

struct Document {
    /// `records` is for this document alone: it holds one record and one autosave file.
    Document(EditorSurface &text, EditorOptions &options, const ApplicationState &application,
        FileStore &files, BackupStore &backups, RecordStore &records)
        : surface(text)
        , state(options)
        , file(files, backups)
        , journal(surface, state, application, file, records, backups)
    {
    }
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;

    operator DocumentParts() { return {surface, state, file, journal}; }
    operator EditedDocument() { return {surface, state}; }

    EditorSurface &surface; ///< the text with its colours, its selection and its undo
    DocumentState state; ///< also which tools are shown
    DocumentFile file;
    RecoveryJournal journal;
};

} // namespace kevra
