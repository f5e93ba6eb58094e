// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtCore/QtGlobal>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace kevra {

[[nodiscard]] inline bool runsAsRoot()
{
#ifdef Q_OS_UNIX
    return ::geteuid() == 0;
#else
    return false;
#endif
}

} // namespace kevra
