// SPDX-License-Identifier: GPL-3.0-or-later
// Signals that terminate the program.
#pragma once

#include <QtCore/QSocketNotifier>

#include <functional>
#include <memory>

namespace kevra {

class EndSignalsQt {
public:
    /// `quitRequested` runs in the event loop after a termination signal. `crashed` runs inside the handler
    /// of a crash signal, when memory may be corrupt, and must do as little as possible.
    EndSignalsQt(std::function<void()> quitRequested, std::function<void()> crashed);
    ~EndSignalsQt();
    EndSignalsQt(const EndSignalsQt &) = delete;
    EndSignalsQt &operator=(const EndSignalsQt &) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace kevra
