// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kevra {

/// From now on screen readers are told a combo box's accessible name as its name and its choice as its value.
/// The toolkit's own interface tells them the choice as both and never the name.
void installComboBoxNames();

} // namespace kevra
