// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QUrl;

/// A program and its arguments.
struct ProgramCommand {
    QString program; ///< its path
    QString arguments; ///< separated by blanks

    /// The command line for the system: the program in double quotes, a blank, and the arguments.
    [[nodiscard]] QString line() const { return u'"' + program + QLatin1String("\" ") + arguments; }
};

/// The services of the desktop.
class Shell {
public:
    virtual ~Shell() = default;

    /// Opens a file with the program that the system has for it; false when that fails.
    virtual bool openFile(const QString& path) = 0;
    /// Opens a web page in the user's browser; false when that fails.
    virtual bool openUrl(const QUrl& url) = 0;
    /// Starts a program, not through a command interpreter; false when that fails.
    virtual bool start(const ProgramCommand& command) = 0;
    /// Adds a file to the system's list of recent documents, if the system has one.
    virtual void addRecentDocument(const QString& path) = 0;
};
