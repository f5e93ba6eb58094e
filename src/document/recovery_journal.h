// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps a recovery record of unsaved text on the disk while the user types, and writes the autosave file.
#pragma once

#include "document/application_state.h"
#include "document/document_file.h"
#include "editor/document_state.h"
#include "editor/surface.h"
#include "storage/record_store.h"

#include <chrono>

namespace kevra {

class RecoveryJournal : public TextKeeper {
public:
    /// With the time that writing takes, three seconds of typing are lost at most.
    static constexpr std::chrono::seconds recordDelay{2};

    RecoveryJournal(EditorSurface &surface, DocumentState &state, const ApplicationState &application,
        DocumentFile &file, RecordStore &store, BackupStore &backups);

    void textChanged();
    /// Call recordDelay after textChanged(), and before much of the text is deleted.
    void writeDown();
    /// Called from the crash handler.
    void writeDownAtCrash();
    /// Call when the autosave interval has elapsed.
    void autosave();
    /// While paused nothing is recorded: the document shows a text that is kept elsewhere.
    void setPaused(bool paused) { m_paused = paused; }

    void textSaved() override;
    void textGivenUp() override;
    void fileLost() override;
    [[nodiscard]] bool keepForNextStart() override;

private:
    [[nodiscard]] TextSnapshot snapshot() const;
    void forget();

    EditorSurface &m_surface;
    DocumentState &m_state;
    const ApplicationState &m_application;
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
