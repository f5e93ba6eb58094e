// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "preview/browser_engine_qt.h"

namespace kevra {

/// An engine from the plugin, which is loaded when the first one is asked for and never by the start-up. Null
/// when there is no plugin, or pages cannot be kept from the network here.
[[nodiscard]] std::unique_ptr<BrowserEngine> makeEngine(
    QWidget *parent, const BrowserClient &client, EngineUse use);

} // namespace kevra
