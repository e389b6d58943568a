// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class FileDialogs;
class LanguageTable;
class Messages;
class Registry;
class Shell;
class UrlPicker;

/// What every window needs of the program around it: the texts, and the interfaces that tests replace. Whatever a
/// window is given in it must outlive the window.
struct Seams {
    const LanguageTable& language;
    Messages& messages;
    FileDialogs& fileDialogs;
    Shell& shell;
    UrlPicker& urlPicker;
    const Registry& registry;

    /// The current text of a key of the language table.
    [[nodiscard]] QString text(const char* key) const;
};
