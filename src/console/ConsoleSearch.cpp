// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/ConsoleSearch.h"

#include "base/allgemein.h"
#include "console/CommandLine.h"
#include "console/Output.h"
#include "results/SearchFileWriter.h"
#include "results/twk.h"
#include "session/SearchMessages.h"

#include <QCoreApplication>

#include <cstdlib>

ConsoleSearch::ConsoleSearch(const SearchArguments& arguments)
    : m_arguments(arguments)
    , m_progress(!arguments.quiet && terminal::isTerminal(stderr))
{
    m_session.requestPrefs = arguments.prefs;
    m_session.cookies.setCookieFolder(Session::cookieFolder(arguments.cookieFolder));
    m_session.search.setFollowRelocation(arguments.followRelocation);
    m_session.search.setLimits(arguments.limits);
    m_session.web.silenceLimit = arguments.timeLimit;
    connect(&m_session.search, &SearchRun::reported, this, &ConsoleSearch::onReport);
    connect(&m_session.search, &SearchRun::finished, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    connect(&m_session.cookies, &CookieStore::notStored, this, [this] {
        m_progress.clear();
        complainOfCookies(m_session.cookies, m_session.language);
    });
    connect(&m_interruptWatch, &terminal::InterruptWatch::interrupted, this, [this] {
        m_interrupted = true;
        endEarly();
    });
    connect(&m_session.search, &SearchRun::limitReached, this, [this](SearchLimit limit) {
        m_hasReachedLimit = true;
        m_progress.clear();
        complain(SearchMessages::limitText(limit, m_arguments.limits, m_session.language));
        endEarly();
    });
}

int ConsoleSearch::run()
{
    tellNotes();
    m_session.searchOptions = m_arguments.options;
    m_session.search.starteSuche(m_session.searchOptions);
    QCoreApplication::exec();
    m_progress.clear();
    // Save before printing: if the reader of standard output goes away, the file is already written.
    const bool saved = save();
    const bool printed = print();
    const bool hasFailed = !saved || !printed || m_hasReachedLimit;
    const int status = hasFailed ? PartlyFailed : m_interrupted ? Interrupted : Done;
    // Everything is written. A normal return would wait for name lookups that are still running, so leave at once.
    if (m_interrupted || m_hasReachedLimit) {
        m_session.cookies.finish();
        std::_Exit(status);
    }
    return status;
}

void ConsoleSearch::tellNotes() const
{
    if (m_arguments.quiet)
        return;
    for (const auto& [typed, entry] : m_arguments.completedSubUrls)
        complain(QStringLiteral("'%1' is read as %2").arg(typed, allgemein::fromSystem(entry)));
    if (!terminal::isTerminal(stderr))
        return;
    const LanguageTable& language = m_session.language;
    const auto note = [&](const QString& text) {
        complain(language.labelled(language.text("lang.note"), text));
    };
    if (m_arguments.unlimited)
        note(language.text("lang.warnNoSearchLimit"));
    if (m_arguments.options.takesHttpsForHost())
        note(language.text("more.onlyHttp"));
}

void ConsoleSearch::endEarly()
{
    m_session.search.stopSearch();
    m_session.search.abandon();
    QCoreApplication::quit();
}

void ConsoleSearch::onReport(FundKnoten* node, const FetchReport& report)
{
    switch (report.event) {
    case FetchEvent::UnsupportedProtocol:
    case FetchEvent::EarlyDisconnect:
    case FetchEvent::NetError:
        if (m_arguments.verbose) {
            m_progress.clear();
            reportFailure(node->inhalt.adresse, twk::stateText(report, m_session.language));
        }
        break;
    case FetchEvent::Connecting:
        showProgress(node);
        break;
    case FetchEvent::Requesting:
    case FetchEvent::Relocated:
        break;
    }
}

void ConsoleSearch::showProgress(const FundKnoten* node)
{
    if (!m_progress.isDue())
        return;
    const LanguageTable& language = m_session.language;
    const QString found =
        language.labelled(language.text("lang.searchFoundUrls"), QString::number(m_session.foundItems.getAnzahl()));
    m_progress.show(
        QStringLiteral("%1  %2  %3")
            .arg(language.text("lang.search_searching"), found, allgemein::fromSystem(node->inhalt.adresse)));
}

bool ConsoleSearch::save() const
{
    if (m_arguments.saveTo.isEmpty())
        return true;
    const auto error =
        searchFile::save(m_arguments.saveTo, m_session.searchOptions, m_session.requestPrefs, m_session.foundItems);
    if (error) {
        const LanguageTable& language = m_session.language;
        const QString reason = language.labelled(language.text("lang.errWhileSavingFile"), error->text(language));
        complain(QStringLiteral("%1: %2").arg(m_arguments.saveTo, reason));
    }
    return !error;
}

bool ConsoleSearch::print() const
{
    const ItemPrinter printer(m_session.language);
    return printToStandardOutput(
        [&](QIODevice& out) { printer.print(out, m_arguments.format, m_session.foundItems, m_arguments.filter); });
}
