// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that an earlier run left behind: offered one after the other, looked at on demand, and gone only when
// they are saved or the user says so.
#pragma once

#include "document/command_ports.h"
#include "document/open_commands.h"
#include "document/recovery_journal.h"
#include "document/save_commands.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace kevra {

/// The main window while a text is looked at that is not the document yet.
class ReviewView {
public:
    virtual ~ReviewView() = default;
    /// Read-only, with a bar that says what is shown and has commands to save, discard or leave it.
    virtual void showReview(const std::string &description) = 0;
    virtual void endReview() = 0;
};

class RecoveryOffer {
public:
    RecoveryOffer(FileCommandPorts ports, SaveCommands &saving, OpenCommands &opening,
        RecoveryJournal &journal, RecoverableTexts &left, ReviewView &view);

    void offer();

    [[nodiscard]] bool reviewing() const { return m_reviewed.has_value(); }
    void saveReviewed();
    void discardReviewed();
    /// Stays for the next start.
    void leaveReviewed();
    /// Another document is about to be shown.
    void abandonReview();

private:
    void offerNext();
    /// Texts that have not been asked about yet.
    [[nodiscard]] std::vector<RecoveryRecord> waiting();
    [[nodiscard]] bool offerText(const std::string &text, const RecoveryRecord &record);
    [[nodiscard]] bool saveUnseen(const RecoveryRecord &record);
    void review(const std::string &text, const RecoveryRecord &record);
    void endReview();
    void restoreDocument();

    FileCommandPorts m_ports;
    SaveCommands &m_saving;
    OpenCommands &m_opening;
    RecoveryJournal &m_journal;
    RecoverableTexts &m_left;
    ReviewView &m_view;
    std::deque<std::string> m_texts; ///< not offered yet
    std::optional<std::string> m_reviewed;
    std::string m_proposed; ///< where the reviewed text would have gone
    std::string m_pathBefore; ///< the document that the reviewed text has taken the place of
};

} // namespace kevra
