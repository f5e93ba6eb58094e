// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/messages.h"
#include "text/find.h"

#include <string>

namespace kevra {

/// Whether the search string is plain text or a regular expression.
enum class Pattern { Text, Expression };

/// What the user has entered, UTF-8.
struct FindRequest {
    std::string text = {};
    std::string replacement = {};
    Case letters = Case::Ignore;
    Word words = Word::Any;
    Pattern pattern = Pattern::Text;

    [[nodiscard]] FindOptions options() const { return {letters, words}; }
    friend bool operator==(const FindRequest &, const FindRequest &) = default;
};

class HitFinder;

/// False, after a message, when the search string is empty.
[[nodiscard]] bool hasText(const FindRequest &request, Messages &messages);
/// False, after a message, when the search string is empty or equals the replacement.
[[nodiscard]] bool canReplaceAll(const FindRequest &request, Messages &messages);
/// Asks before deleting all hits; true without a question when there is a replacement.
[[nodiscard]] bool wantsReplaceAll(const FindRequest &request, Messages &messages);
/// False, after a message, when the expression is invalid.
[[nodiscard]] bool isUsable(const HitFinder &finder, Messages &messages);
void reportEndless(Messages &messages);

} // namespace kevra
