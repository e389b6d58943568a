// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

/// Where the main window and its parts are, kept from one start of the program to the next in a file of its own in the
/// data folder. A part that is empty leaves things where they are.
struct WindowLayout {
    QByteArray geometry;
    QByteArray splitter; ///< between tree and list
    QByteArray columns; ///< of the results list
    QByteArray downloadsGeometry;
    QByteArray downloadsColumns;

    [[nodiscard]] static WindowLayout load();
    /// A layout that cannot be written is not worth a message: it is the old one next time.
    void save() const;
};
