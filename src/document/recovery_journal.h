// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps a record of unsaved text on the disk while the user types, autosave or not, and the autosave file.
#pragma once

#include "document/application_state.h"
#include "document/document_file.h"
#include "editor/document_state.h"
#include "editor/surface.h"
#include "storage/record_store.h"

namespace kevra {

class RecoveryJournal : public TextKeeper {
public:
    RecoveryJournal(EditorSurface &document, DocumentState &state, ApplicationState &application,
        DocumentFile &file, RecordStore &store, BackupStore &backups);

    void textChanged();
    /// At most a few seconds after textChanged(), and before much of the text is deleted.
    void writeDown();
    /// The last thing a broken program does.
    void writeDownAtCrash();
    /// The autosave interval is over.
    void autosave();
    /// The text in the document is only shown: it is kept elsewhere, and nothing is written down.
    void setPaused(bool paused) { m_paused = paused; }

    void textSaved() override;
    void textGivenUp() override;
    void fileLost() override;
    [[nodiscard]] bool documentReplaced() override;

private:
    [[nodiscard]] TextSnapshot snapshot() const;
    void forget();

    EditorSurface &m_document;
    DocumentState &m_state;
    ApplicationState &m_application;
    DocumentFile &m_file;
    RecordStore &m_store;
    BackupStore &m_backups;
    bool m_changed = false; ///< since the record was written
    bool m_changedSinceAutosave = false;
    bool m_recorded = false;
    bool m_givenUp = false;
    bool m_paused = false;
};

} // namespace kevra
