// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that an earlier run left behind: one is asked about, several are a list; looked at on demand, and
// gone only when they are saved or the user says so.
#pragma once

#include "document/command_ports.h"
#include "document/open_commands.h"
#include "document/recovery_journal.h"
#include "document/recovery_list.h"
#include "document/save_commands.h"

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
        RecoveryJournal &journal, RecoverableTexts &left, ReviewView &view, RecoveryList &list);

    void offer();

    [[nodiscard]] bool reviewing() const { return m_reviewed.has_value(); }
    void saveReviewed();
    void discardReviewed();
    /// Stays for the next start.
    void leaveReviewed();
    /// Another document is about to be shown.
    void abandonReview();

private:
    struct Waiting {
        std::string text; ///< as the store names it
        RecoveryRow row;
    };

    void offerNext();
    void askAboutOne();
    /// False when what is left waits for the next start.
    [[nodiscard]] bool chooseFromList();
    /// Whether the text has been dealt with.
    [[nodiscard]] bool carryOut(RecoveryChoice choice, const std::string &text);
    void offerText(const std::string &text, const RecoveryRecord &record);
    [[nodiscard]] bool saveUnseen(const std::string &text, const RecoveryRecord &record);
    [[nodiscard]] bool review(const std::string &text, const RecoveryRecord &record);
    void endReview();
    void restoreDocument();

    FileCommandPorts m_ports;
    SaveCommands &m_saving;
    OpenCommands &m_opening;
    RecoveryJournal &m_journal;
    RecoverableTexts &m_left;
    ReviewView &m_view;
    RecoveryList &m_list;
    std::vector<Waiting> m_texts; ///< not dealt with, newest first
    bool m_listed = false; ///< the texts of this start are a list, also when the last one is left
    std::optional<std::string> m_reviewed;
    std::string m_proposed; ///< where the reviewed text would have gone
    std::string m_pathBefore; ///< the document that the reviewed text has taken the place of
};

} // namespace kevra
