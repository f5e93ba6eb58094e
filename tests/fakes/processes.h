// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/process_start.h"

#include <set>
#include <vector>

namespace kevra {

class FakeProcessStart : public ProcessStart {
public:
    bool start(const std::string &path) override
    {
        started.push_back(path);
        return starts;
    }
    bool runsWithoutExtension(const std::string &path) const override { return runnable.contains(path); }
    std::string namePattern() const override { return "*"; }

    bool starts = true;
    std::set<std::string> runnable;
    std::vector<std::string> started;
};

} // namespace kevra
