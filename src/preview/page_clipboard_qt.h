// SPDX-License-Identifier: GPL-3.0-or-later
// The clipboard is the user's: the engine lets a page write to it after any click.
#pragma once

namespace kevra {

/// The user has asked to copy from the page: for a second the engine may write to the clipboard. At no other
/// time, and never to the selection that the middle button pastes.
void allowPageCopy();

} // namespace kevra
