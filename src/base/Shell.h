// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QUrl;

/// A command line in its two parts.
struct ProgramCommand {
    QString program; ///< its path
    QString arguments; ///< with blanks between them

    /// What the system is given: the program in double quotes, a blank, and the arguments.
    [[nodiscard]] QString line() const { return u'"' + program + QLatin1String("\" ") + arguments; }
};

/// What the desktop does for the program.
class Shell {
public:
    virtual ~Shell() = default;

    /// Opens a file with the program that the system has for it; false when that fails.
    virtual bool openFile(const QString& path) = 0;
    /// Opens a web page in the user's browser; false when that fails.
    virtual bool openUrl(const QUrl& url) = 0;
    /// Starts a program, with no shell in between; false when that fails.
    virtual bool start(const ProgramCommand& command) = 0;
    /// Puts a file on the system's list of recent documents, where it keeps one.
    virtual void addRecentDocument(const QString& path) = 0;
};
