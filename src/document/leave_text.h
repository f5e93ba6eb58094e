// SPDX-License-Identifier: GPL-3.0-or-later
// The last question before a text that is in no file goes out of the document.
#pragma once

#include "desktop/messages.h"
#include "storage/backup_store.h"

#include <functional>

namespace kevra {

/// Called when the text is about to leave the document and nobody has been asked about it. It is kept for the
/// next start without a word; where it can be kept nowhere the user saves it elsewhere with `saveAs`, gives
/// it up, or stays, which is false.
[[nodiscard]] bool mayLeaveText(TextKeeper &keeper, Messages &messages, const std::function<bool()> &saveAs);

} // namespace kevra
