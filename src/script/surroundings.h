// SPDX-License-Identifier: GPL-3.0-or-later
// Where a script runs decides which names it finds there.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kevra::script {

enum class Host : std::uint8_t {
    ScriptFile, ///< .vbs: by itself under the script host
    HostFile, ///< .wsf, .wsc: with the objects and scripts the file names
    Page, ///< .htm, .hta: with the window and the page's elements
    ServerPage, ///< .asp, .asa
};

/// An object that the file gives a name outside of the script.
struct ProvidedObject {
    std::string_view name;
    std::string_view progId; ///< empty where it is not known
};

struct Surroundings {
    Host host = Host::ScriptFile;
    /// Other scripts are loaded beside this one: its names may be theirs.
    bool includesOthers = false;
    std::vector<ProvidedObject> objects;
};

} // namespace kevra::script
