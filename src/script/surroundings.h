// SPDX-License-Identifier: GPL-3.0-or-later
// Where a script runs decides which names it finds there.
#pragma once

#include <cstdint>

namespace kevra::script {

enum class Host : std::uint8_t {
    ScriptFile, ///< .vbs: by itself under the script host
    HostFile, ///< .wsf, .wsc: with the objects and scripts the file names
    Page, ///< .htm, .hta: with the window and the page's elements
    ServerPage, ///< .asp, .asa
};

} // namespace kevra::script
