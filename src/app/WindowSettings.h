// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// What the settings file keeps of the windows. Lengths are in twips, the fifteenth part of a pixel at 96 dpi; where
/// one is 0, the window keeps its own.
struct WindowSettings {
    static constexpr int twipsPerPixel = 15;

    bool filterAutoApply = true; ///< apply each change of the filter at once
    bool filter = true; ///< show the filter pane
    bool tree = true; ///< show the tree
    qint32 treeX = 0; ///< the place of the splitter between tree and list
    qint32 mainWidth = 0;
    qint32 mainHeight = 0;
    bool mainMaximized = false;
    qint32 dlmWidth = 0; ///< of the download manager
    qint32 dlmHeight = 0;
    bool autoOpenDLM = true; ///< show the download manager when downloads are added
    /// The built-in language to begin with; nothing for the one that is selected already.
    std::optional<int> builtInLanguage;
    QString langFile; ///< the language file in use, with its full path; empty with a built-in language
};
