// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kevra {

/// Other programs, started and left alone. Paths are bytes as the file system has them.
class ProcessStart {
public:
    virtual ~ProcessStart() = default;
    /// Starts the program without arguments, in a normal window, never through a shell, and does not wait for
    /// it. It shares nothing with this program and goes on when this one ends. False when it did not start.
    [[nodiscard]] virtual bool start(const std::string &path) = 0;
    /// Whether programs of this platform carry no extension and this file may be run as one.
    [[nodiscard]] virtual bool runsWithoutExtension(const std::string &path) const = 0;
    /// The names that programs have on this platform, as a file dialog filters them.
    [[nodiscard]] virtual std::string namePattern() const = 0;
};

} // namespace kevra
