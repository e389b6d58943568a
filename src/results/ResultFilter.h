// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/SubUrl.h"
#include "results/MimeTypeList.h"

#include <QByteArray>
#include <QList>

#include <array>
#include <optional>

struct FundStück;

/// How the filter uses a list: as the only values shown (Whitelist), or as the values hidden (Blacklist).
enum class FilterSwitch { Off = 0, Whitelist = 1, Blacklist = 2 };

/// Bounds, both included. No value is inside if `min` exceeds `max`.
struct FilterRange {
    /// The greatest number that a bound can be. As `max` it means that there is no upper bound.
    static constexpr qint64 greatest = 999'999'999'999;

    bool used = false;
    qint64 min = 0;
    qint64 max = greatest;

    [[nodiscard]] bool admits(qint64 value, qint64 unit = 1) const
    {
        return !used || (min * unit <= value && (max == greatest || value <= max * unit));
    }
    bool operator==(const FilterRange&) const = default;
};

/// Decides which found items are shown. The default shows all.
struct ResultFilter {
    /// B, kiB and MiB.
    static constexpr std::array<qint64, 3> sizeUnits { 1, 1024, 1024 * 1024 };

    FilterRange depth;
    /// In units of `sizeUnit`. An unknown size counts as -1 byte.
    FilterRange size;
    qint64 sizeUnit = 1; ///< in bytes; one of `sizeUnits`
    FilterSwitch mimeSwitch = FilterSwitch::Off;
    MimeTypeList mimeListe;
    FilterSwitch urlSwitch = FilterSwitch::Off;
    QList<QByteArray> filterTexte; ///< parts of URLs; letter case counts
    /// The chosen branch of the host tree; nullopt for its root, which shows everything.
    std::optional<SubUrl> branch;

    /// Looks at a branch. The root, at level 0, stands for all items, those of other protocols included.
    void setBranch(const SubUrl& chosen);
    /// Switches all tests off. The bounds and lists stay.
    void reset();
    /// Whether any test is on.
    [[nodiscard]] bool isActive() const;
    [[nodiscard]] bool shows(const FundStück& item) const;
};
