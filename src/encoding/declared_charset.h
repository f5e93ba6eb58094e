// SPDX-License-Identifier: GPL-3.0-or-later
// The character set that a text declares in its first 4 KB: a page in a meta tag or an ASP code page, an XML
// text in its first line, a style sheet by @charset.
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
    Encoding read; ///< the set to read with: ASCII bytes that declare UTF-16 cannot be UTF-16
    TextRange label; ///< the name or number, in bytes from the start of the text
    bool codePage = false; ///< the label is a number

    /// Whether the declaration is correct for a file in this encoding.
    [[nodiscard]] bool agreesWith(Encoding encoding) const { return named == encoding || read == encoding; }
};

/// The declarations that name a known set, the effective one first. Comments are skipped.
[[nodiscard]] std::vector<Declaration> declarations(std::string_view text, TextKind kind);
/// The set to read with, according to the effective declaration.
[[nodiscard]] std::optional<Encoding> declaredCharset(std::string_view text, TextKind kind);
/// The label that would declare `encoding` there; empty if that needs a code page which does not exist.
[[nodiscard]] std::string labelFor(const Declaration &declaration, Encoding encoding);

} // namespace kevra
