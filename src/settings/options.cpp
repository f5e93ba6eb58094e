// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/options.h"

#include "text/paths.h"

namespace kevra {

bool storedOption(const SettingsStore &store, Option option)
{
    const auto &row = rowOf(option);
    const auto stored = readSetting(store, row.key);
    const auto is = [&](std::string_view word) { return equalIgnoringCase(stored, word); };
    switch (row.onFor) {
    case OnFor::YesOrNone:
        return is("yes") || is("none");
    case OnFor::YesAlone:
        return is("yes");
    case OnFor::AllButNo:
        return !is("no");
    }
    return false;
}

void storeOption(SettingsStore &store, Option option, bool on)
{
    writeSetting(store, rowOf(option).key, on ? "yes" : "no");
}

} // namespace kevra
