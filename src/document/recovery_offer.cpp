// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/recovery_offer.h"

#include "document/leave_text.h"
#include "document/recovery_details.h"

namespace kevra {
namespace {

constexpr auto saveTitle = "Save file from last session";

std::string description(const RecoveryRecord &record)
{
    const auto name = record.path.empty() ? std::string("new work") : record.path;
    return "Text from the last session (" + name + "): read-only until it is saved or discarded.";
}

} // namespace

RecoveryOffer::RecoveryOffer(FileCommandPorts ports, SaveCommands &saving, OpenCommands &opening,
    RecoveryJournal &journal, RecoverableTexts &left, ReviewView &view)
    : m_ports(ports)
    , m_saving(saving)
    , m_opening(opening)
    , m_journal(journal)
    , m_left(left)
    , m_view(view)
{
}

void RecoveryOffer::offer()
{
    const auto texts = m_left.list();
    m_texts.assign(texts.begin(), texts.end());
    offerNext();
}

void RecoveryOffer::offerNext()
{
    while (!m_texts.empty() && !reviewing()) {
        const auto text = m_texts.front();
        m_texts.pop_front();
        const auto record = m_left.open(text);
        if (!record)
            continue;
        const bool savedAfterAll = !record->path.empty() && m_ports.files.read(record->path) == record->bytes;
        if (savedAfterAll || offerText(text, *record))
            m_left.removeSaved(text);
    }
}

std::vector<RecoveryRecord> RecoveryOffer::waiting()
{
    std::vector<RecoveryRecord> records;
    for (const auto &text : m_texts)
        if (auto record = m_left.open(text))
            records.push_back(std::move(*record));
    return records;
}

bool RecoveryOffer::offerText(const std::string &text, const RecoveryRecord &record)
{
    const auto ask = [&](const char *question, std::string details = {}) {
        Message message{question, Icon::Question, Buttons::YesNoCancel};
        message.details = std::move(details);
        return m_ports.messages.show(message);
    };
    switch (ask(
        "There's a file stored from Autosave. Do you want to save it?", recoveryDetails(record, waiting()))) {
    case Answer::No:
        m_left.discard(text);
        return false;
    case Answer::Yes:
        break;
    default:
        return false;
    }
    switch (ask("Do you want to see the file before saving?")) {
    case Answer::Yes:
        review(text, record);
        return false;
    case Answer::No:
        return saveUnseen(record);
    default:
        return false;
    }
}

bool RecoveryOffer::saveUnseen(const RecoveryRecord &record)
{
    if (!m_saving.saveBytesAs(saveTitle, record.path, record.bytes))
        return false;
    // It may have gone to the very file that is open.
    if (m_ports.file.diskState() == DiskState::Changed)
        m_opening.loadAccepted(m_ports.state.currentPath);
    return true;
}

void RecoveryOffer::review(const std::string &text, const RecoveryRecord &record)
{
    auto &state = m_ports.state;
    if (!mayLeaveText(m_ports.keeper, m_ports.messages, [this] { return m_saving.saveAs(); }))
        return;
    m_pathBefore = m_ports.document.Length() > 0 ? state.currentPath : std::string();
    m_reviewed = text;
    m_proposed = record.path;
    m_journal.setPaused(true);
    m_opening.showRecovered(record);
    state.unsaved = false;
    m_view.showReview(description(record));
    m_ports.main.setInformation("Text from the last session");
    m_ports.main.redrawAndFocus();
    m_ports.main.refreshDocumentStatus();
}

void RecoveryOffer::saveReviewed()
{
    if (!reviewing() || !m_saving.saveAs(saveTitle, m_proposed))
        return;
    m_left.removeSaved(*m_reviewed);
    endReview();
    if (!m_pathBefore.empty())
        restoreDocument();
    offerNext();
}

void RecoveryOffer::discardReviewed()
{
    if (!reviewing())
        return;
    m_left.discard(*m_reviewed);
    endReview();
    restoreDocument();
    offerNext();
}

void RecoveryOffer::leaveReviewed()
{
    if (!reviewing())
        return;
    endReview();
    restoreDocument();
    offerNext();
}

void RecoveryOffer::abandonReview()
{
    if (reviewing())
        endReview();
}

void RecoveryOffer::endReview()
{
    m_reviewed.reset();
    m_journal.setPaused(false);
    m_ports.state.unsaved = false;
    m_ports.main.setInformation("");
    m_view.endReview();
}

void RecoveryOffer::restoreDocument()
{
    m_ports.state.currentPath = m_pathBefore;
    if (m_pathBefore.empty() || !m_opening.loadAccepted(m_pathBefore))
        m_opening.newFile();
}

} // namespace kevra
