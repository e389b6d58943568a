// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/ResultFilter.h"

#include "crawl/FundListe.h"

#include <algorithm>

namespace {

template <typename IsListed> bool passes(FilterSwitch mode, IsListed isListed)
{
    switch (mode) {
    case FilterSwitch::Off:
        return true;
    case FilterSwitch::Whitelist:
        return isListed();
    case FilterSwitch::Blacklist:
        return !isListed();
    }
    return true;
}

} // namespace

bool ResultFilter::shows(const FundStück& item) const
{
    const auto typeListed = [&] {
        return mimeListe.isListed(item.mimeTyp);
    };
    const auto partListed = [&] {
        return std::any_of(filterTexte.begin(), filterTexte.end(),
            [&](const QByteArray& part) { return item.adresse.contains(part); });
    };
    return depth.admits(item.tiefe) && size.admits(item.groesse, sizeUnit) && passes(mimeSwitch, typeListed)
        && passes(urlSwitch, partListed) && (!branch || branch->matches(item.adresse));
}
