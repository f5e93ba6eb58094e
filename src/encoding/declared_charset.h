// SPDX-License-Identifier: GPL-3.0-or-later
// What a text says of its own character set, in its first 4 KB: a page in a meta tag or an ASP code page, an
// XML text in its first line, a style sheet by @charset.
#pragma once

#include "encoding/text_format.h"
#include "text/types.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

struct Declaration {
    Encoding named; ///< the set it names
    Encoding read; ///< what it is read as: UTF-16 cannot be declared in bytes that are ASCII
    TextRange label; ///< the name or number, in bytes from the start of the text
    bool codePage = false; ///< a number

    /// Whether it says the truth of a file in this encoding.
    [[nodiscard]] bool agreesWith(Encoding encoding) const { return named == encoding || read == encoding; }
};

/// Those that name a known set, the one that counts first. Comments are passed over.
[[nodiscard]] std::vector<Declaration> declarations(std::string_view text, TextKind kind);
/// What the first of them is read as.
[[nodiscard]] std::optional<Encoding> declaredCharset(std::string_view text, TextKind kind);
/// What has to stand in the place of its label for `encoding`; empty where no code page has a number for it.
[[nodiscard]] std::string labelFor(const Declaration &declaration, Encoding encoding);

} // namespace kevra
