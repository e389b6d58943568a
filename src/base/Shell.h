// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QUrl;

/// What the desktop does for the program.
class Shell {
public:
    virtual ~Shell() = default;

    /// Opens a file with the program that the system has for it; false when that fails.
    virtual bool openFile(const QString& path) = 0;
    /// Opens a page of the program's makers in the user's browser; false when that fails.
    virtual bool openUrl(const QUrl& url) = 0;
    /// Puts a file on the system's list of recent documents, where it keeps one.
    virtual void addRecentDocument(const QString& path) = 0;
};
