// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/recovery_journal.h"

#include <new>

namespace kevra {

RecoveryJournal::RecoveryJournal(EditorSurface &surface, DocumentState &state,
    const ApplicationState &application, DocumentFile &file, RecordStore &store, BackupStore &backups)
    : m_surface(surface)
    , m_state(state)
    , m_application(application)
    , m_file(file)
    , m_store(store)
    , m_backups(backups)
{
}

void RecoveryJournal::textChanged()
{
    if (m_paused)
        return;
    m_changed = true;
    m_changedSinceAutosave = true;
    m_givenUp = false;
}

void RecoveryJournal::writeDown()
{
    // Emptying the text keeps its record: that is the last text the user had.
    if (!m_changed || m_paused || m_surface.TextLength() == 0)
        return;
    m_changed = false;
    if (m_file.mayHold(static_cast<std::size_t>(m_surface.TextLength())) && m_file.holds(m_surface.Text()))
        return forget();
    try {
        m_store.writeRecord(snapshot());
        m_recorded = true;
    } catch (const std::bad_alloc &) {
        m_changed = true; // try again the next time
    }
}

void RecoveryJournal::writeDownAtCrash()
{
    // Also when a record is being written: that thread may never finish.
    if ((m_changed || m_recorded) && !m_paused && m_surface.TextLength() > 0)
        m_store.writeCrashRecord(snapshot());
}

void RecoveryJournal::autosave()
{
    if (!m_application.autosaveOn || !m_changedSinceAutosave || m_paused || m_surface.TextLength() == 0)
        return;
    m_changedSinceAutosave = false;
    m_store.writeAutosave(snapshot());
    m_state.autosaveWritten = true;
}

void RecoveryJournal::textSaved()
{
    m_changed = false;
    m_changedSinceAutosave = false;
    forget();
    m_store.textSaved(m_file.path());
}

void RecoveryJournal::fileLost()
{
    textChanged();
    writeDown();
}

void RecoveryJournal::textGivenUp()
{
    // It can be restored for a time from File, Versions.
    if (!m_paused && !m_givenUp && m_surface.TextLength() > 0 && !m_file.holds(m_surface.Text()))
        std::ignore = m_backups.keep(m_file.path().empty() ? "untitled.txt" : m_file.path(),
            fileBytes(snapshot()), KeptReason::GivenUp);
    m_changed = false;
    m_givenUp = true;
    forget();
}

bool RecoveryJournal::keepForNextStart()
{
    if (m_paused || m_givenUp)
        return true;
    writeDown();
    // An empty text does not have to be saved first.
    if (m_recorded && !m_store.setRecordAside() && m_surface.TextLength() > 0)
        return false;
    m_changed = false;
    m_recorded = false;
    return true;
}

TextSnapshot RecoveryJournal::snapshot() const
{
    // Not the current path, which may already be that of a file about to be opened.
    const auto &path = m_file.path();
    return {path, m_file.form(path, m_state.scriptTools), m_surface.TextCopy()};
}

void RecoveryJournal::forget()
{
    if (m_recorded)
        m_store.removeRecord();
    m_recorded = false;
}

} // namespace kevra
