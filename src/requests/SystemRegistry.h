// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Platform.h"
#include "base/Registry.h"

/// The registry of the running system.
class SystemRegistry final : public Registry {
public:
    [[nodiscard]] std::optional<QString> text(const QString& key, const QString& name) const override
    {
        return platform::registryText(key, name);
    }
};
