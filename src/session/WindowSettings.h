// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// The settings of the windows. Lengths are in twips (1/15 of a pixel at 96 dpi); with a length of 0 the window keeps
/// its default.
struct WindowSettings {
    static constexpr int twipsPerPixel = 15;

    bool filterAutoApply = true; ///< apply each change of the filter at once
    bool filter = true; ///< show the filter pane
    bool tree = true; ///< show the tree
    qint32 treeX = 0; ///< position of the splitter between tree and list
    qint32 mainWidth = 0;
    qint32 mainHeight = 0;
    bool mainMaximized = false;
    qint32 dlmWidth = 0; ///< width of the download manager
    qint32 dlmHeight = 0;
    bool autoOpenDLM = true; ///< show the download manager when downloads are added
    /// The built-in language that the settings choose; nothing if they choose none.
    std::optional<int> builtInLanguage;
    QString langFile; ///< full path of the language file in use; empty with a built-in language
};
