// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kevra {

/// Why a text is kept.
enum class KeptReason {
    Replaced, ///< replaced by a save; another program had written it
    GivenUp, ///< unsaved text that the user discarded
    EarlierForm, ///< an earlier form of a recovered text
    Deleted, ///< deleted by a command of this program
};

/// Keeps, for a limited time, content that was replaced or deleted but not written by this program.
class BackupStore {
public:
    virtual ~BackupStore() = default;
    /// `path` is the file that the bytes come from. False when they could not be kept.
    [[nodiscard]] virtual bool keep(
        const std::string &path, std::string_view bytes, KeptReason reason = KeptReason::Replaced)
        = 0;
};

/// Protects the document's text against loss. Called by the commands that save or replace it.
class TextKeeper {
public:
    virtual ~TextKeeper() = default;
    virtual void textSaved() = 0; ///< the text is completely on the disk
    virtual void textGivenUp() = 0; ///< the user discarded the text
    virtual void fileLost() = 0; ///< the file no longer holds the text: the window has the only copy
    /// The text leaves the document without a question. If it is in no file, it is offered at the next start.
    /// False when it could not be kept and has to stay.
    [[nodiscard]] virtual bool keepForNextStart() = 0;
};

} // namespace kevra
