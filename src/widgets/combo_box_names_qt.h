// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kevra {

/// Makes screen readers announce a combo box by its accessible name, with the choice as its value. Qt's own
/// interface gives the choice as both and never the name.
void installComboBoxNames();

} // namespace kevra
