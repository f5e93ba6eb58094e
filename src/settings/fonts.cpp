// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/fonts.h"

#include "text/paths.h"

#include <algorithm>
#include <span>

namespace kevra {

namespace {

constexpr int standardPosition = 1;

FontChoice choose(std::span<const std::string_view> entries, std::string_view stored)
{
    if (equalIgnoringCase(stored, "no"))
        return {standardPosition, std::string(entries[standardPosition])};
    const auto it = std::ranges::find_if(
        entries, [&](std::string_view entry) { return equalIgnoringCase(entry, stored); });
    if (it == entries.end())
        return {static_cast<int>(entries.size()) - 1, std::string(stored)};
    return {static_cast<int>(it - entries.begin()), std::string(*it)};
}

} // namespace

FontChoice chosenFace(std::string_view stored)
{
    return choose(fontFaces, stored);
}

FontChoice chosenSize(std::string_view stored)
{
    return choose(fontSizes, stored);
}

} // namespace kevra
