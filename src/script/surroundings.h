// SPDX-License-Identifier: GPL-3.0-or-later
// Where a script runs, which decides what names the host provides.
#pragma once

#include "script/host_objects.h"

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

/// What a global variable of another file always holds.
struct SharedObject {
    std::string_view name;
    TypeId type = TypeId::Unknown;
    std::string_view ofClass; ///< a class of that file or of a third one; type is Object then
};

struct Surroundings {
    Host host = Host::ScriptFile;
    /// Other scripts are loaded too, and may declare names that this one uses.
    bool includesOthers = false;
    std::vector<ProvidedObject> objects;
    std::vector<SharedObject> shared;
};

} // namespace kevra::script
