// SPDX-License-Identifier: GPL-3.0-or-later
// Names of files in reports. A name is any bytes, JSON is UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace kevra {

/// The bytes of the name; what is no UTF-8 in them becomes U+FFFD, byte by byte.
[[nodiscard]] std::string nameAsUtf8(std::string_view name);
/// Whatever is neither an ASCII letter, a digit nor one of "-._~/" as % and two hexadecimal digits.
[[nodiscard]] std::string percentEncoded(std::string_view name);

} // namespace kevra
