// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/nearness.h"

#include <algorithm>

namespace kevra::script {
namespace {

/// Shorter names often differ by one letter on purpose.
constexpr std::size_t shortestName = 5;

[[nodiscard]] char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

[[nodiscard]] bool isLetter(char c)
{
    return lower(c) >= 'a' && lower(c) <= 'z';
}

[[nodiscard]] bool equal(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, lower, lower);
}

/// `longer` has one letter more, at `at`. A plural, a number or a prefix is intended.
[[nodiscard]] bool isAddedLetter(std::string_view longer, std::string_view shorter, std::size_t at)
{
    const bool plural = at + 1 == longer.size() && lower(longer[at]) == 's';
    return equal(longer.substr(at + 1), shorter.substr(at)) && isLetter(longer[at]) && !plural && at != 0;
}

} // namespace

bool isSlip(std::string_view written, std::string_view meant)
{
    if (std::min(written.size(), meant.size()) < shortestName)
        return false;
    const auto ends = std::ranges::mismatch(written, meant, {}, lower, lower);
    const auto at = static_cast<std::size_t>(ends.in1 - written.begin());
    if (written.size() == meant.size() + 1)
        return isAddedLetter(written, meant, at);
    if (meant.size() == written.size() + 1)
        return isAddedLetter(meant, written, at);
    if (written.size() != meant.size() || at == written.size())
        return false;
    if (at == 0 || !isLetter(written[at]) || !isLetter(meant[at]))
        return false;
    const bool swapped = at + 1 < written.size() && lower(written[at]) == lower(meant[at + 1])
        && lower(written[at + 1]) == lower(meant[at]) && equal(written.substr(at + 2), meant.substr(at + 2));
    // In pairs such as startX and startY the last letter is the difference intended.
    return swapped || (at + 1 < written.size() && equal(written.substr(at + 1), meant.substr(at + 1)));
}

std::string_view nearest(std::string_view written, std::span<const std::string_view> names)
{
    const auto found
        = std::ranges::find_if(names, [&](std::string_view name) { return isSlip(written, name); });
    return found == names.end() ? std::string_view() : *found;
}

} // namespace kevra::script
