// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/find_request.h"

#include "find/hit_finder.h"

namespace kevra {

bool hasText(const FindRequest &request, Messages &messages)
{
    if (request.text.empty())
        messages.stop("No entry in \"String to Find\"");
    return !request.text.empty();
}

bool canReplaceAll(const FindRequest &request, Messages &messages)
{
    if (!hasText(request, messages))
        return false;
    if (request.pattern == Pattern::Text && sameForSearch(request.text, request.replacement)) {
        messages.stop("You've entered the same text to replace the original!");
        return false;
    }
    return true;
}

bool wantsReplaceAll(const FindRequest &request, Messages &messages)
{
    return !request.replacement.empty()
        || messages.yes("No text entered. Delete all instances of \"" + request.text + "\"?");
}

bool isUsable(const HitFinder &finder, Messages &messages)
{
    if (!finder.fault().empty())
        messages.stop("The regular expression cannot be used: " + finder.fault());
    return finder.fault().empty();
}

void reportEndless(Messages &messages)
{
    messages.stop("The file is too big to process further.");
}

} // namespace kevra
