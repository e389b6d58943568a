// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SearchStatus.h"

#include "base/allgemein.h"
#include "base/lang.h"

namespace {

QString stateText(SearchState state, const LanguageTable& language)
{
    switch (state) {
    case SearchState::None:
        return language.text("lang.search_noSearch");
    case SearchState::Searching:
        return language.text("lang.search_state") + QLatin1String(": ") + language.text("lang.search_searching");
    case SearchState::Stopped:
        return language.text("lang.search_stoppedSearch");
    case SearchState::Finished:
        return language.text("lang.search_finished");
    case SearchState::Loaded:
        return language.text("lang.search_loaded");
    }
    return {};
}

} // namespace

std::array<QString, 5> SearchStatus::panels(const LanguageTable& language) const
{
    const bool none = state == SearchState::None;
    const auto labelled = [&](const char* label, const QString& value) -> QString {
        return language.text(label) + QLatin1String(": ") + (none ? QStringLiteral("-") : value);
    };
    return {
        stateText(state, language),
        labelled("lang.search_startlink", allgemein::shownText(startUrl)),
        labelled("lang.search_depth", QString::number(depthLimit)),
        labelled("lang.searchFoundUrls", QString::number(found)),
        language.text("lang.searchAnalysedUrls") + QLatin1String(": coming soon"),
    };
}
