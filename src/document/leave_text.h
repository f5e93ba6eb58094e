// SPDX-License-Identifier: GPL-3.0-or-later
// The last question before a text that is in no file leaves the document.
#pragma once

#include "desktop/messages.h"
#include "storage/backup_store.h"

#include <functional>

namespace kevra {

/// Called before the text leaves the document without the user having been asked. The text is silently kept
/// for the next start. If that fails, the user can save it with `saveAs`, discard it, or stay; then the
/// result is false.
[[nodiscard]] bool mayLeaveText(TextKeeper &keeper, Messages &messages, const std::function<bool()> &saveAs);

} // namespace kevra
