// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/SubUrl.h"
#include "results/MimeListe.h"

#include <QByteArray>
#include <QList>

#include <optional>

struct FundStück;

/// How a list of the filter is used.
enum class FilterSwitch { Off = 0, Whitelist = 1, Blacklist = 2 };

/// Bounds, both included. Nothing is inside when `min` exceeds `max`.
struct FilterRange {
    bool used = false;
    qint64 min = 0;
    qint64 max = 0;
    [[nodiscard]] bool admits(qint64 value, qint64 unit = 1) const
    {
        return !used || (min * unit <= value && value <= max * unit);
    }
};

/// Which found items are shown. The default shows all.
struct ResultFilter {
    FilterRange depth;
    /// In units of `sizeUnit`. An unknown size is -1 byte.
    FilterRange size;
    qint64 sizeUnit = 1; ///< in bytes
    FilterSwitch mimeSwitch = FilterSwitch::Off;
    MimeListe mimeListe;
    FilterSwitch urlSwitch = FilterSwitch::Off;
    QList<QByteArray> filterTexte; ///< parts of URLs, found anywhere in them, exactly
    /// The branch of the host tree that is looked at; its root is "http://" at level 0.
    std::optional<SubUrl> branch;

    [[nodiscard]] bool shows(const FundStück& item) const;
};
