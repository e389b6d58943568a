// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/ConsoleDownload.h"

#include "base/allgemein.h"
#include "console/CommandLine.h"
#include "console/Output.h"
#include "downloads/EntryText.h"
#include "http/url.h"
#include "http/webUrl.h"
#include "results/SearchFileReader.h"
#include "results/twk.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdlib>

namespace {

/// An entry that is relocated more often has failed.
constexpr int mostRelocations = 20;

/// Whether a source names a search file; anything else is a URL.
bool isSearchFile(const QString& source)
{
    return !source.contains(QLatin1String("://"))
        && (source.endsWith(QLatin1String(".twk"), Qt::CaseInsensitive) || QFileInfo(source).isFile());
}

} // namespace

ConsoleDownload::ConsoleDownload(const DownloadArguments& arguments)
    : m_arguments(arguments)
    , m_queue(m_session.downloads)
    , m_progress(!arguments.quiet && terminal::isTerminal(stderr))
    , m_printsToTerminal(terminal::isTerminal(stdout))
{
    m_session.requestPrefs.userAgent = RequestPrefs::readyUserAgents().constFirst();
    m_session.cookies.setCookieFolder(Session::cookieFolder({}));
    m_session.web = arguments.web;
    m_queue.settings() = arguments.settings;
    if (!m_out.open(stdout, QIODevice::WriteOnly))
        throw UsageError { QStringLiteral("standard output: ") + m_out.errorString() };
    connect(&m_queue, &DownloadQueue::changed, this, &ConsoleDownload::showProgress);
    connect(&m_queue, &DownloadQueue::ended, this, &ConsoleDownload::onEnded);
    connect(&m_queue, &DownloadQueue::idle, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    connect(&m_session.cookies, &CookieStore::notStored, this, [this] {
        m_progress.clear();
        complainOfCookies(m_session.cookies, m_session.language);
    });
    connect(&m_interruptWatch, &terminal::InterruptWatch::interrupted, this, &ConsoleDownload::interrupt);
    // Nothing is fetched before every source was read: the last one may be unusable.
    m_queue.settings().active = false;
    for (const QString& source : arguments.sources)
        addSource(source);
}

void ConsoleDownload::addSource(const QString& source)
{
    if (isSearchFile(source))
        addItems(source);
    else
        m_queue.addDL(url::withProtocol(allgemein::toSystem(source)), -1, m_arguments.referer);
}

void ConsoleDownload::addItems(const QString& fileName)
{
    StoredSearch search;
    const searchFile::LoadResult result = searchFile::load(fileName, search);
    const QString error = fileName + QLatin1String(": ") + twk::errorText(result, m_session.language);
    if (result.error == searchFile::LoadError::Truncated) {
        complain(error);
        m_hasFailed = true;
    } else if (result.error != searchFile::LoadError::None) {
        throw UsageError { error };
    }
    complainOfSkippedLines(fileName, result, m_session.language);
    qint64 leftOut = 0;
    for (const FundKnoten* node = search.list.getStart(); node; node = node->naechster()) {
        const FundStück& item = node->inhalt;
        if (!m_arguments.filter.shows(item))
            continue;
        const QByteArrayView protocol = url::protocolOf(item.adresse);
        if (m_session.web.fetches(protocol)) {
            m_queue.addDL(webUrl::fromPlainSearch(item.adresse), item.groesse,
                m_arguments.referer.isEmpty() ? item.referer : m_arguments.referer);
        } else if (protocol == "https") {
            ++m_unfetchedHttps;
        } else {
            ++leftOut;
        }
    }
    if (leftOut > 0) {
        complain(QStringLiteral("%1: items left out, because only http and https are supported: %2")
                     .arg(fileName)
                     .arg(leftOut));
    }
}

int ConsoleDownload::run()
{
    m_queue.settings().active = true;
    m_queue.startWaiting();
    // The queue is also idle for a moment between the end of a relocated entry and its new start.
    while (!m_interrupted && m_queue.runningCount() + m_queue.waitingCount() > 0)
        QCoreApplication::exec();
    m_progress.clear();
    if (m_unfetchedHttps > 0)
        complain(QStringLiteral("https URLs that were not fetched: %1. --modern fetches them.").arg(m_unfetchedHttps));
    const int status = m_interrupted ? Interrupted : m_hasFailed ? PartlyFailed : Done;
    // A normal return would wait for name lookups that are still running.
    if (m_interrupted) {
        m_session.cookies.finish();
        std::_Exit(status);
    }
    return status;
}

void ConsoleDownload::interrupt()
{
    m_interrupted = true;
    QCoreApplication::quit();
}

void ConsoleDownload::onEnded(const DownloadEntry& entry)
{
    if (follows(entry)) {
        // The slot that reports the end is not free yet, so queue the entry after this signal.
        QMetaObject::invokeMethod(
            this,
            [this, id = entry.id] {
                const int row = m_queue.rowOf(id);
                m_queue.queue({ { row, row } });
            },
            Qt::QueuedConnection);
        return;
    }
    m_progress.clear();
    m_hasFailed = m_hasFailed || entry.tag != DownloadTag::Complete;
    if (entry.status == DownloadStatus::UnsupportedProtocol && url::protocolOf(entry.url) == "https")
        ++m_unfetchedHttps;
    print(entry);
    report(entry);
}

void ConsoleDownload::report(const DownloadEntry& entry) const
{
    QStringList reasons;
    if (entry.tag != DownloadTag::Complete)
        reasons += entryText::reason(entry, m_session.language);
    if (entry.httpStatus >= DownloadEntry::firstErrorStatus && entry.status != DownloadStatus::Refused)
        reasons += m_session.language.text("more.httpStatus").arg(entry.httpStatus);
    if (!reasons.isEmpty())
        reportFailure(entry.url, reasons.join(QLatin1String("; ")));
}

bool ConsoleDownload::follows(const DownloadEntry& entry)
{
    return m_arguments.followRelocation && entry.status == DownloadStatus::Relocated
        && ++m_relocations[entry.id] <= mostRelocations;
}

void ConsoleDownload::print(const DownloadEntry& entry)
{
    const QByteArray target = entry.target.isEmpty() ? QByteArrayLiteral("-") : allgemein::toSystem(entry.target);
    const QByteArray line = letterOf(entry.tag) + '\t' + shown(target) + '\t' + shown(entry.url) + '\n';
    if (m_out.write(line) < 0 || !m_out.flush())
        m_hasFailed = true;
}

QByteArray ConsoleDownload::shown(const QByteArray& text) const
{
    return m_printsToTerminal ? allgemein::toSystem(terminal::printable(allgemein::fromSystem(text))) : text;
}

void ConsoleDownload::showProgress()
{
    if (!m_progress.isDue())
        return;
    QStringList lines;
    for (const DownloadEntry* const entry : m_queue.running()) {
        lines += QStringLiteral("%1  %2  %3")
                     .arg(entryText::progress(*entry, true), 4)
                     .arg(entryText::fileName(*entry), entryText::status(*entry, m_session.language));
    }
    m_progress.show(lines);
}
