// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QPoint>

#include <optional>

/// What is kept from one start of the program to the next beside the settings, in a file of its own: it is worth
/// having, but nothing is lost without it.
struct ViewState {
    std::optional<QPoint> mainPlace; ///< the upper left corner of the main window
    std::optional<QPoint> downloadsPlace; ///< and of the download manager
    QByteArray columns; ///< of the results list; empty for the columns that it has at first
    QByteArray downloadsColumns;
    QByteArrayList unlistedTypes; ///< those of the filter's MIME types that are not checked
    std::optional<int> builtInLanguage; ///< the one under a language file

    /// From the user's data folder. What is missing or damaged there stays empty.
    [[nodiscard]] static ViewState load();
    /// A state that cannot be written is not worth a message: it is the old one next time.
    void save() const;
};
