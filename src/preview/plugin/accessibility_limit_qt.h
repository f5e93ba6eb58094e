// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kevra {

/// From now on a page can tell screen readers of so many changes a second; each is a message that the editor
/// waits for. What the editor itself tells is not counted.
void limitPageAccessibility();

} // namespace kevra
