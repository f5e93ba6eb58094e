// SPDX-License-Identifier: GPL-3.0-or-later
// Conversions between paths and the protocol's file URIs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kevra::lsp {

/// The path of a file: URI; nothing for other schemes.
[[nodiscard]] std::optional<std::string> pathOfUri(std::string_view uri);
[[nodiscard]] std::string uriOfPath(std::string_view path);
/// The path of a file that is named in another one: `\` separates too, and "." and ".." are resolved.
[[nodiscard]] std::string pathBeside(std::string_view path, std::string_view named);

} // namespace kevra::lsp
