// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kevra {

enum class Sockets {
    AllButLocal, ///< those of this machine stay, for the display and the sound
    All, ///< for the process that looks names up and connects
};

/// The kernel refuses these to this process and to every program started from it. Sockets that are handed
/// over are not looked at: the editor has none for the Internet. False when this system cannot do so.
[[nodiscard]] bool refuseSockets(Sockets refused);

} // namespace kevra
