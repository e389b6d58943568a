// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/ResultFilter.h"

#include "crawl/FundListe.h"

#include <algorithm>
#include <cstring>

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

/// Faster than QByteArrayView::contains, whose preparations for long texts cost more than the search in a URL. Where
/// the first letter of the part matches, its last letter is tested next, which rules out most places.
bool contains(QByteArrayView url, QByteArrayView part)
{
    if (part.isEmpty())
        return true;
    const qsizetype last = part.size() - 1;
    const char* place = url.begin();
    while (url.end() - place > last) {
        place =
            static_cast<const char*>(std::memchr(place, part.front(), static_cast<size_t>(url.end() - place - last)));
        if (!place)
            return false;
        if (place[last] == part.back() && std::equal(part.begin(), part.end(), place))
            return true;
        ++place;
    }
    return false;
}

} // namespace

void ResultFilter::setBranch(const SubUrl& chosen)
{
    branch = chosen.level > 0 ? std::optional(chosen) : std::nullopt;
}

void ResultFilter::reset()
{
    depth.used = size.used = false;
    mimeSwitch = urlSwitch = FilterSwitch::Off;
    branch.reset();
}

bool ResultFilter::isActive() const
{
    return depth.used || size.used || mimeSwitch != FilterSwitch::Off || urlSwitch != FilterSwitch::Off || branch;
}

bool ResultFilter::shows(const FundStück& item) const
{
    const auto typeListed = [&] {
        return mimeListe.isListed(item.mimeTyp);
    };
    const auto partListed = [&] {
        return std::any_of(filterTexte.begin(), filterTexte.end(),
            [&](const QByteArray& part) { return contains(item.adresse, part); });
    };
    return depth.admits(item.tiefe) && size.admits(item.groesse, sizeUnit) && passes(mimeSwitch, typeListed)
        && passes(urlSwitch, partListed) && (!branch || branch->matches(item.adresse));
}
