// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/messages.h"

namespace kevra {

/// Message boxes of the desktop, modal over the active window.
class MessagesQt : public Messages {
public:
    Answer show(const Message &message) override;
};

} // namespace kevra
