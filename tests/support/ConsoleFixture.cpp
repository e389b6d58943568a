// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ConsoleFixture.h"

#include <QProcess>
#include <QSignalSpy>

void ConsoleFixture::reset()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_server = std::make_unique<ScriptedServer>();
    m_server->page("/", "<a href='a.html'><img src='b.png'>");
    m_server->page("/a.html", "<a href='mailto:me'>");
    m_server->script("/b.png",
        { { "HTTP/1.1 200 OK\r\nContent-Type: image/png\r\nContent-Length: 2048\r\nContent-Language: de\r\n\r\n" } });
}

void ConsoleFixture::start(QProcess& process, const QByteArray& line)
{
    const QByteArray folder = m_folder->path().toUtf8() + '/';
    const QByteArray words = QByteArray(line).replace("URL", m_server->origin()).replace('@', folder);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TARNWICK_DATA"), file("data"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(TARNWICK_CLI), QString::fromUtf8(words).split(u' ', Qt::SkipEmptyParts));
}

ConsoleFixture::Result ConsoleFixture::run(const QByteArray& line)
{
    // The server runs on this thread, so wait for the program in the event loop.
    QProcess process;
    QSignalSpy finished(&process, &QProcess::finished);
    start(process, line);
    if (!finished.wait(60'000))
        return {};
    // Standard error is for people, so it has the line ends of the system; standard output has the same bytes
    // everywhere.
    return { process.exitCode(), process.readAllStandardOutput().replace(m_server->origin(), "URL"),
        process.readAllStandardError().replace("\r\n", "\n") };
}
