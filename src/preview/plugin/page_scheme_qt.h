// SPDX-License-Identifier: GPL-3.0-or-later
// The program's own schemes: the engine gets every byte of a page from here or, once it was sent there, from
// a file.
#pragma once

#include "preview/browser_engine_qt.h"

class QWebEngineProfile;

namespace kevra {

/// Before the engine starts; once is enough.
void registerPageSchemes();
/// The profile's requests are decided on, and answered where they are the program's, by `requests`.
void installPageSchemes(QWebEngineProfile &profile, RequestGate &requests);

} // namespace kevra
