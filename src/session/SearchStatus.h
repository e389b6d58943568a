// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <array>

class LanguageTable;

/// How far the search has come.
enum class SearchState {
    None, ///< nothing was searched or opened yet
    Searching,
    Stopped,
    Finished,
    Loaded, ///< opened from a search file
};

/// The search as the status bar and the menus show it.
struct SearchStatus {
    SearchState state = SearchState::None;
    QByteArray startUrl;
    qint32 depthLimit = 0;
    qint32 found = 0; ///< how many items the search has
    bool opening = false; ///< a search file or a list is being read

    [[nodiscard]] bool canStart() const { return state != SearchState::Searching && !opening; }
    [[nodiscard]] bool canStop() const { return state == SearchState::Searching; }
    /// A finished search has nothing left to continue with.
    [[nodiscard]] bool canContinue() const
    {
        return !opening && (state == SearchState::Stopped || state == SearchState::Loaded);
    }
    [[nodiscard]] bool isBusy() const { return opening || state == SearchState::Searching; }

    /// The texts of the status bar's panels: state, start URL, depth limit, found URLs, analysed URLs. The last has
    /// no counter behind it.
    [[nodiscard]] std::array<QString, 5> panels(const LanguageTable& language) const;
    /// The text that an empty results list shows. `isHiding`: the filter that was applied last hides all items.
    /// `isWaiting`: the filter was changed since.
    [[nodiscard]] QString emptyListText(bool isHiding, bool isWaiting, const LanguageTable& language) const;
};
