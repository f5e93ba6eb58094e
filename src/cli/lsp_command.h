// SPDX-License-Identifier: GPL-3.0-or-later
// "kevra-cli lsp": the language server over standard input and output.
#pragma once

namespace kevra {

/// Returns the process's exit code.
int runLanguageServer();

} // namespace kevra
