// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kevra {

/// What is said above the page. Each has a line of its own, so that none takes the place of another.
enum class BesideNote {
    State, ///< why there is no page, or that it does not answer
    Alert, ///< the page's last message box
    Browser, ///< what became of "Open in Browser"
    Refused, ///< that parts of the page are left out
    Sandbox,
};

} // namespace kevra
