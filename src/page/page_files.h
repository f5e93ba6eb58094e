// SPDX-License-Identifier: GPL-3.0-or-later
// The files around a page, as its rules ask for them. Paths are bytes with '/' between their parts.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace kevra::page {

struct DisplayedSize {
    long width = 0;
    long height = 0;

    friend bool operator==(DisplayedSize, DisplayedSize) = default;
};

/// What a fragment of an address can lead to in a page: ids, and names of anchors.
using TargetNames = std::unordered_set<std::string>;

class PageFiles {
public:
    virtual ~PageFiles() = default;

    /// Whether there is a file or folder of this name.
    [[nodiscard]] virtual bool exists(const std::string &path) = 0;
    /// In pixels, as a page shows it; nothing where that is not known.
    [[nodiscard]] virtual std::optional<DisplayedSize> pictureSize(const std::string &path) = 0;
    /// nullptr where it cannot be told: no page, too large, or made by a server. Valid until the next call.
    [[nodiscard]] virtual const TargetNames *targetsOf(const std::string &path) = 0;
};

/// By the ending of its name: pages whose elements are looked at, server pages among them.
[[nodiscard]] bool isPage(std::string_view path);
/// Nothing where server parts, or references that stand for characters, leave it open.
[[nodiscard]] std::optional<TargetNames> targetNames(std::string_view page);
/// Of what begins with `head`: PNG, GIF, JPEG without a note on how it is turned, BMP. Nothing of all others.
[[nodiscard]] std::optional<DisplayedSize> sizeInHeader(std::string_view head);

} // namespace kevra::page
