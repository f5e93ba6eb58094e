// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"

namespace kevra {

void wireFind(Application &) { }

} // namespace kevra
