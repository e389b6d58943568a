// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class FileDialogs;
class Messages;
class Registry;
class Shell;
class UrlPicker;

/// The ends of the program that a test puts others in the place of.
struct Seams {
    Messages& messages;
    FileDialogs& fileDialogs;
    Shell& shell;
    UrlPicker& urlPicker;
    const Registry& registry;
};
