// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QPoint>

#include <optional>

/// Where the windows stand and how their lists look.
struct ViewState {
    std::optional<QPoint> mainPlace; ///< upper left corner of the main window
    std::optional<QPoint> downloadsPlace; ///< upper left corner of the download manager
    QByteArray columns; ///< layout of the results list; empty for the default
    QByteArray downloadsColumns; ///< layout of the download list; empty for the default
};
