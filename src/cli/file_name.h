// SPDX-License-Identifier: GPL-3.0-or-later
// File names in reports. A name can be any bytes; JSON is UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace kevra {

/// The name, with each byte that is not valid UTF-8 replaced by U+FFFD.
[[nodiscard]] std::string nameAsUtf8(std::string_view name);
/// Percent-encodes every byte except ASCII letters, digits and "-._~/".
[[nodiscard]] std::string percentEncoded(std::string_view name);

} // namespace kevra
