// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// The current user's part of the system's registry.
class Registry {
public:
    virtual ~Registry() = default;

    /// A text value of a key; nothing when there is none, or the system has no registry.
    [[nodiscard]] virtual std::optional<QString> text(const QString& key, const QString& name) const = 0;
};
