// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/process_start.h"

namespace kevra {

class ProcessStartQt : public ProcessStart {
public:
    [[nodiscard]] bool start(const std::string &path) override;
    /// The same with one argument; an empty one is not passed.
    [[nodiscard]] static bool start(const std::string &path, const std::string &argument);
    [[nodiscard]] bool runsWithoutExtension(const std::string &path) const override;
    [[nodiscard]] std::string namePattern() const override;
};

} // namespace kevra
