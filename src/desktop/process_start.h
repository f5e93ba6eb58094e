// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kevra {

/// Starts other programs, detached from this one. Paths are file system bytes.
class ProcessStart {
public:
    virtual ~ProcessStart() = default;
    /// Starts the program without arguments, in a normal window, never through a shell, and does not wait for
    /// it. It inherits no handles and keeps running when this program ends. False when it did not start.
    [[nodiscard]] virtual bool start(const std::string &path) = 0;
    /// Whether this platform runs programs without an extension and this file is one that may be run.
    [[nodiscard]] virtual bool runsWithoutExtension(const std::string &path) const = 0;
    /// The file dialog's pattern for programs on this platform.
    [[nodiscard]] virtual std::string namePattern() const = 0;
};

} // namespace kevra
