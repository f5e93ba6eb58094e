// SPDX-License-Identifier: GPL-3.0-or-later
// Where a script runs, which decides what names the host provides.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kevra::script {

enum class Host : std::uint8_t {
    ScriptFile, ///< .vbs: run by the script host
    HostFile, ///< .wsf, .wsc: with the objects and scripts that the file references
    Page, ///< .htm, .hta: with the window and the page's elements
    ServerPage, ///< .asp, .asa
};

/// An object that the file names outside of the script.
struct ProvidedObject {
    std::string_view name;
    std::string_view progId; ///< empty where it is not known
};

struct Surroundings {
    Host host = Host::ScriptFile;
    /// Other scripts are loaded too, and may declare names that this one uses.
    bool includesOthers = false;
    std::vector<ProvidedObject> objects;
};

} // namespace kevra::script
