// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/ScriptedServer.h"

#include <QTemporaryDir>

#include <memory>

class QProcess;

/// Runs the console program as a script would. Tests of its commands inherit from it.
class ConsoleFixture {
protected:
    struct Result {
        int status = -1;
        QByteArray out;
        QByteArray err;
    };

    /// An empty folder, and a server with the pages "/" and "/a.html" and the picture "/b.png".
    void reset();
    /// Runs the program with the words of a line, in which "URL" stands for the server's URL and "@" for the test's
    /// folder. In its standard output the server's URL is replaced by "URL" again.
    Result run(const QByteArray& line);
    void start(QProcess& process, const QByteArray& line);
    [[nodiscard]] QString file(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    /// The words of a search that keeps its cookies in the test's folder.
    [[nodiscard]] static QByteArray search(const QByteArray& more = {})
    {
        return "search URL --cookies @cookies " + more;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ScriptedServer> m_server;
};
