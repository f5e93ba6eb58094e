// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kevra {

/// Starts another instance of this program on a private copy of the text, named `fileName`. False when it did
/// not start.
[[nodiscard]] bool openInNewWindow(const std::string &fileName, std::string_view bytes);

} // namespace kevra
