// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/allgemein.h"

#include <array>

/// The name under which a switch of `Settings` stands in files or arguments.
template <typename Settings> struct SwitchKey {
    QByteArrayView key;
    bool Settings::*member;
};

/// The switch of a name; nullptr for a name that is not in the table.
template <typename Settings, size_t count>
[[nodiscard]] bool* findSwitch(
    Settings& settings, const std::array<SwitchKey<Settings>, count>& table, QByteArrayView key)
{
    for (const SwitchKey<Settings>& entry : table) {
        if (entry.key == key)
            return &(settings.*(entry.member));
    }
    return nullptr;
}

/// Sets the switch of a name to what a file says; false for a name that is not in the table.
template <typename Settings, size_t count>
bool readSwitchKey(
    Settings& settings, const std::array<SwitchKey<Settings>, count>& table, QByteArrayView key, QByteArrayView value)
{
    bool* const found = findSwitch(settings, table, key);
    if (found)
        *found = allgemein::readSwitch(value);
    return found != nullptr;
}
