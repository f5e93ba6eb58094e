// SPDX-License-Identifier: GPL-3.0-or-later
// Offers the texts left by an earlier run: one as a question, several as a list. A text can be reviewed, and
// is removed only when it is saved or discarded.
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

/// The main window while a recovered text is reviewed.
class ReviewView {
public:
    virtual ~ReviewView() = default;
    /// Makes the text read-only and shows a bar with commands to save, discard or leave it.
    virtual void showReview(const std::string &description) = 0;
    virtual void endReview() = 0;
};

class RecoveryOffer {
public:
    /// A review is abandoned when the user opens or starts another document with `opening`.
    RecoveryOffer(FileCommandPorts ports, SaveCommands &saving, OpenCommands &opening,
        RecoveryJournal &journal, RecoverableTexts &recoverable, ReviewView &view, RecoveryList &list);

    void offer();

    [[nodiscard]] bool reviewing() const { return m_reviewed.has_value(); }
    /// The reviewed text, or the document when there is none.
    void save();
    void saveAs();
    void saveReviewed();
    void discardReviewed();
    /// Keeps the text for the next start.
    void leaveReviewed();

private:
    struct OfferedText {
        std::string text; ///< its name in the store
        RecoveryRow row;
    };

    void offerNext();
    void askAboutOne();
    /// False when the remaining texts are left for the next start.
    [[nodiscard]] bool chooseFromList();
    /// Whether a decision about the text was carried out.
    [[nodiscard]] bool apply(RecoveryChoice choice, const std::string &text);
    void offerText(const std::string &text, const RecoveryRecord &record);
    [[nodiscard]] bool saveWithoutReview(const std::string &text, const RecoveryRecord &record);
    [[nodiscard]] bool review(const std::string &text, const RecoveryRecord &record);
    void abandonReview();
    void endReview();
    void restoreDocument();

    FileCommandPorts m_ports;
    SaveCommands &m_saving;
    OpenCommands &m_opening;
    RecoveryJournal &m_journal;
    RecoverableTexts &m_recoverable;
    ReviewView &m_view;
    RecoveryList &m_list;
    std::vector<OfferedText> m_texts; ///< not decided yet, newest first
    bool m_asList = false; ///< show a list, even when only one text remains
    std::optional<std::string> m_reviewed;
    std::string m_proposed; ///< the reviewed text's original path
    std::string m_pathBefore; ///< the document's path before the review
};

} // namespace kevra
