// SPDX-License-Identifier: GPL-3.0-or-later
// The ends of the program that nobody in it has chosen.
#pragma once

#include <QtCore/QSocketNotifier>

#include <functional>
#include <memory>

namespace kevra {

class EndSignalsQt {
public:
    /// `endAsked` runs in the event loop at a signal that would end the program; `crashed` at once when it
    /// has broken down, on whatever is left of it, and must do as little as it can.
    EndSignalsQt(std::function<void()> endAsked, std::function<void()> crashed);
    ~EndSignalsQt();
    EndSignalsQt(const EndSignalsQt &) = delete;
    EndSignalsQt &operator=(const EndSignalsQt &) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace kevra
