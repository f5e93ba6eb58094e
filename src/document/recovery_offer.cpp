// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/recovery_offer.h"

#include "document/leave_text.h"
#include "document/recovery_details.h"

#include <algorithm>
#include <iterator>
#include <utility>

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
    RecoveryJournal &journal, RecoverableTexts &recoverable, ReviewView &view, RecoveryList &list)
    : m_ports(ports)
    , m_saving(saving)
    , m_opening(opening)
    , m_journal(journal)
    , m_recoverable(recoverable)
    , m_view(view)
    , m_list(list)
{
    m_opening.beforeOpening([this] { abandonReview(); });
}

void RecoveryOffer::offer()
{
    m_texts.clear();
    for (auto &text : m_recoverable.list()) {
        const auto record = m_recoverable.open(text);
        if (!record)
            continue;
        if (!record->path.empty() && m_ports.files.read(record->path) == record->bytes)
            m_recoverable.removeSaved(text); // saved after all
        else
            m_texts.push_back({std::move(text), recoveryRow(*record)});
    }
    m_asList = m_texts.size() > 1;
    offerNext();
}

void RecoveryOffer::offerNext()
{
    if (!m_asList)
        return askAboutOne();
    while (!m_texts.empty() && !reviewing())
        if (!chooseFromList())
            m_texts.clear();
    m_list.endList();
}

void RecoveryOffer::askAboutOne()
{
    if (m_texts.empty())
        return;
    const auto text = std::move(m_texts.front().text);
    m_texts.clear();
    if (const auto record = m_recoverable.open(text))
        offerText(text, *record);
}

bool RecoveryOffer::chooseFromList()
{
    std::vector<RecoveryRow> rows;
    std::ranges::transform(m_texts, std::back_inserter(rows), &OfferedText::row);
    const auto answer = m_list.choose(rows);
    if (answer.choice == RecoveryChoice::Later || answer.row >= m_texts.size())
        return false;
    const auto at = m_texts.begin() + static_cast<std::ptrdiff_t>(answer.row);
    if (apply(answer.choice, at->text))
        m_texts.erase(at);
    return true;
}

bool RecoveryOffer::apply(RecoveryChoice choice, const std::string &text)
{
    const auto record = m_recoverable.open(text);
    if (!record)
        return true;
    if (choice == RecoveryChoice::Look)
        return review(text, *record);
    if (choice == RecoveryChoice::Save)
        return saveWithoutReview(text, *record);
    m_recoverable.discard(text);
    return true;
}

void RecoveryOffer::offerText(const std::string &text, const RecoveryRecord &record)
{
    const auto ask = [&](const char *question, std::string details = {}) {
        Message message{question, Icon::Question, Buttons::YesNoCancel};
        message.details = std::move(details);
        return m_ports.messages.show(message);
    };
    const auto wanted
        = ask("There's a file stored from Autosave. Do you want to save it?", recoveryDetails(record));
    if (wanted == Answer::No)
        m_recoverable.discard(text);
    if (wanted != Answer::Yes)
        return;
    const auto seen = ask("Do you want to see the file before saving?");
    if (seen == Answer::Yes)
        std::ignore = review(text, record); // else it stays for the next start
    else if (seen == Answer::No)
        std::ignore = saveWithoutReview(text, record); // the same
}

bool RecoveryOffer::saveWithoutReview(const std::string &text, const RecoveryRecord &record)
{
    if (!m_saving.saveBytesAs(saveTitle, record.path, record.bytes))
        return false;
    m_recoverable.removeSaved(text);
    // The text may have been saved over the open file.
    if (m_ports.document.file.diskState() == DiskState::Changed)
        m_opening.loadAccepted(m_ports.document.state.currentPath);
    return true;
}

bool RecoveryOffer::review(const std::string &text, const RecoveryRecord &record)
{
    auto &state = m_ports.document.state;
    if (!mayLeaveText(m_ports.document.keeper, m_ports.messages, [this] { return m_saving.saveAs(); }))
        return false;
    m_pathBefore = m_ports.document.surface.TextLength() > 0 ? state.currentPath : std::string();
    m_reviewed = text;
    m_proposed = record.path;
    m_journal.setPaused(true);
    m_opening.showRecovered(record);
    state.unsaved = false;
    m_view.showReview(description(record));
    m_ports.main.setInformation("Text from the last session");
    m_ports.main.redrawAndFocus();
    m_ports.main.refreshDocumentStatus();
    return true;
}

void RecoveryOffer::save()
{
    reviewing() ? saveReviewed() : m_saving.save();
}

void RecoveryOffer::saveAs()
{
    reviewing() ? saveReviewed() : m_saving.saveAsMenu();
}

void RecoveryOffer::saveReviewed()
{
    if (!reviewing() || !m_saving.saveAs(saveTitle, m_proposed))
        return;
    m_recoverable.removeSaved(*m_reviewed);
    endReview();
    if (!m_pathBefore.empty())
        restoreDocument();
    offerNext();
}

void RecoveryOffer::discardReviewed()
{
    if (!reviewing())
        return;
    m_recoverable.discard(*m_reviewed);
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
    m_ports.document.state.unsaved = false;
    m_ports.main.setInformation("");
    m_view.endReview();
}

void RecoveryOffer::restoreDocument()
{
    m_ports.document.state.currentPath = m_pathBefore;
    if (m_pathBefore.empty() || !m_opening.loadAccepted(m_pathBefore))
        m_opening.newFile();
}

} // namespace kevra
