// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SearchStatus.h"

#include "base/allgemein.h"
#include "base/lang.h"

namespace {

QString stateText(SearchState state, const LanguageTable& language)
{
    switch (state) {
    case SearchState::None:
        return language.text("lang.search_noSearch");
    case SearchState::Searching:
        return language.labelled(language.text("lang.search_state"), language.text("lang.search_searching"));
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
        return language.labelled(language.text(label), none ? QStringLiteral("-") : value);
    };
    return {
        stateText(state, language),
        labelled("lang.search_startlink", allgemein::shownText(startUrl)),
        labelled("lang.search_depth", QString::number(depthLimit)),
        labelled("lang.searchFoundUrls", QString::number(found)),
        language.labelled(language.text("lang.searchAnalysedUrls"), QStringLiteral("coming soon")),
    };
}

QString SearchStatus::emptyListText(bool isHiding, bool isWaiting, const LanguageTable& language) const
{
    if (state == SearchState::None)
        return language.text("lang.search_noSearch") + u'\n' + language.text("more.hintNew");
    if (!isHiding || found == 0)
        return {};
    return language.text(isWaiting ? "more.filterWaits" : "more.allFiltered");
}
