// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/messages.h"
#include "text/find.h"

#include <string>

namespace kevra {

/// How what was entered is meant: as it stands, or as a regular expression.
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

/// False, after a message, when nothing was entered to be found.
[[nodiscard]] bool hasText(const FindRequest &request, Messages &messages);
/// False, after a message, when replacing everything makes no sense.
[[nodiscard]] bool canReplaceAll(const FindRequest &request, Messages &messages);
/// Asks before everything is deleted; true without a question when there is a replacement.
[[nodiscard]] bool wantsReplaceAll(const FindRequest &request, Messages &messages);
/// False, after a message, when the expression is faulty.
[[nodiscard]] bool isSound(const HitFinder &finder, Messages &messages);
void refuseEndless(Messages &messages);

} // namespace kevra
