// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/leave_text.h"

namespace kevra {
namespace {

constexpr auto cannotBeKept
    = "The unsaved text cannot be kept: neither the folder for unsaved texts nor a temporary folder can "
      "be written.\n\nDo you want to save it in another place? \"No\" discards it.";

} // namespace

bool mayLeaveText(TextKeeper &keeper, Messages &messages, const std::function<bool()> &saveAs)
{
    while (!keeper.keepForNextStart()) {
        switch (messages.show({cannotBeKept, Icon::Critical, Buttons::YesNoCancel})) {
        case Answer::Yes:
            saveAs();
            break;
        case Answer::No:
            keeper.textGivenUp();
            return true;
        default:
            return false;
        }
    }
    return true;
}

} // namespace kevra
