// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a script: the checker gives a verdict, and what it marks lies inside the text.
#include "checker/checker.h"

#include <cstdlib>

using namespace kevra;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const char *data, std::size_t size)
{
    const std::string_view text(data, size);
    const auto result = check(text, true);
    require(!result.verdict.empty());
    if (result.fault)
        require(result.fault->marked.start >= 0 && result.fault->marked.end <= static_cast<Offset>(size));
    const auto all = checkAll(text, true);
    require((result.verdict == "OK") == all.empty());
    if (!all.empty())
        require(all.front().message == result.verdict);
    return 0;
}
