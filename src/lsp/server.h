// SPDX-License-Identifier: GPL-3.0-or-later
// The session over standard input and output.
#pragma once

#include "lsp/session.h"

#include <functional>
#include <string_view>

namespace kevra::lsp {

/// Waits for bytes; returns their number, 0 at the end of the input.
using ReadBytes = std::function<std::size_t(char *room, std::size_t size)>;
using WriteBytes = std::function<void(std::string_view)>;

/// Runs until the client ends it or the input ends; returns the exit code.
int serve(
    FileSystem &disk, std::vector<SnippetText> snippets, const ReadBytes &read, const WriteBytes &write);

} // namespace kevra::lsp
