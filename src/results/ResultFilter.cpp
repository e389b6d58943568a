// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/ResultFilter.h"

#include "crawl/FundListe.h"

#include <algorithm>
#include <string_view>

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

/// The library's own search prepares itself for long texts, which takes longer than the search in a URL.
bool holds(const QByteArray& url, const QByteArray& part)
{
    const auto viewOf = [](const QByteArray& bytes) {
        return std::string_view(bytes.data(), static_cast<size_t>(bytes.size()));
    };
    return viewOf(url).find(viewOf(part)) != std::string_view::npos;
}

} // namespace

bool ResultFilter::shows(const FundStück& item) const
{
    const auto typeListed = [&] {
        return mimeListe.isListed(item.mimeTyp);
    };
    const auto partListed = [&] {
        return std::any_of(
            filterTexte.begin(), filterTexte.end(), [&](const QByteArray& part) { return holds(item.adresse, part); });
    };
    return depth.admits(item.tiefe) && size.admits(item.groesse, sizeUnit) && passes(mimeSwitch, typeListed)
        && passes(urlSwitch, partListed) && (!branch || branch->matches(item.adresse));
}
