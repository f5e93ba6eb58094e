// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kevra {

/// Why a text is kept.
enum class KeptReason {
    Replaced, ///< a save took the place of what another program had written
    GivenUp, ///< unsaved text that the user did not want
    EarlierForm, ///< of a text that was recovered in its later form
    Deleted, ///< by one of this program's commands
};

/// Keeps, for a time and within bounds, what was replaced or deleted although this program had not written
/// it.
class BackupStore {
public:
    virtual ~BackupStore() = default;
    /// `path` is where the bytes lay. False when they could not be kept.
    virtual bool keep(
        const std::string &path, std::string_view bytes, KeptReason reason = KeptReason::Replaced)
        = 0;
};

/// The text in the document against loss. Called by the commands that save it or take it away.
class TextKeeper {
public:
    virtual ~TextKeeper() = default;
    virtual void textSaved() = 0; ///< the text is on the disk, whole
    virtual void textGivenUp() = 0; ///< the user said that the text is not wanted
    virtual void fileLost() = 0; ///< the file does not hold the text any more: the window has the only copy
    /// The text leaves the document and nobody was asked: if it is in no file, it is offered at the next
    /// start. False when it could be kept nowhere: then it has to stay.
    [[nodiscard]] virtual bool documentReplaced() = 0;
};

} // namespace kevra
