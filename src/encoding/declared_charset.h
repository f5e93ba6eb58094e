// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/text_format.h"

#include <optional>
#include <string_view>

namespace kevra {

/// The character set that a page names in its first 4 KB, in a meta tag or an ASP code page, when it is UTF-8
/// or a Western single-byte set. The first one counts; comments are passed over.
[[nodiscard]] std::optional<Encoding> declaredCharset(std::string_view page);

} // namespace kevra
