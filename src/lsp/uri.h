// SPDX-License-Identifier: GPL-3.0-or-later
// Files as the protocol names them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kevra::lsp {

/// The path of a file: URI; nothing for other schemes.
[[nodiscard]] std::optional<std::string> pathOfUri(std::string_view uri);
[[nodiscard]] std::string uriOfPath(std::string_view path);
/// What a file named in another one means: `\` separates as well, and "." and ".." are followed.
[[nodiscard]] std::string pathBeside(std::string_view path, std::string_view named);

} // namespace kevra::lsp
