// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/SearchCommand.h"

#include "base/allgemein.h"
#include "console/CommandLine.h"
#include "results/SearchFileWriter.h"
#include "results/twk.h"

#include <QCoreApplication>

#include <cstdlib>

SearchCommand::SearchCommand(const SearchArguments& arguments)
    : m_arguments(arguments)
    , m_progress(!arguments.quiet && terminal::isTerminal(stderr))
{
    m_session.requestPrefs = arguments.prefs;
    m_session.cookies.setCookieFolder(Session::cookieFolder(arguments.cookieFolder));
    m_session.search.setFollowRelocation(arguments.followRelocation);
    connect(&m_session.search, &SearchRun::reported, this, &SearchCommand::onReport);
    connect(&m_session.search, &SearchRun::finished, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    connect(&m_interruptWatch, &terminal::InterruptWatch::interrupted, this, &SearchCommand::interrupt);
}

int SearchCommand::run()
{
    tellNotes();
    m_session.searchOptions = m_arguments.options;
    m_session.search.starteSuche(m_session.searchOptions);
    QCoreApplication::exec();
    m_progress.clear();
    // Saved first: a reader of standard output that goes away must not cost the file.
    const bool saved = save();
    const bool printed = print();
    const int status = !saved || !printed ? PartlyFailed : m_interrupted ? Interrupted : Done;
    // An ordinary end would wait for name servers that are still being asked. All is written; nobody waits.
    if (m_interrupted)
        std::_Exit(status);
    return status;
}

void SearchCommand::tellNotes() const
{
    if (m_arguments.quiet || !terminal::isTerminal(stderr))
        return;
    const LanguageTable& language = m_session.language;
    const auto note = [&](const QString& text) {
        complain(language.text("lang.note") + QLatin1String(": ") + text);
    };
    if (m_arguments.unlimited)
        note(language.text("lang.warnNoSearchLimit"));
    if (m_arguments.options.takesHttpsForHost())
        note(language.text("more.onlyHttp"));
}

void SearchCommand::interrupt()
{
    m_interrupted = true;
    m_session.search.stopSearch();
    m_session.search.abandon();
    QCoreApplication::quit();
}

void SearchCommand::onReport(FundKnoten* knoten, const FetchReport& report)
{
    switch (report.event) {
    case FetchEvent::UnsupportedProtocol:
    case FetchEvent::EarlyDisconnect:
    case FetchEvent::SocketError:
        rememberUnanswered(knoten->inhalt, report);
        break;
    case FetchEvent::Connecting:
        showProgress(knoten);
        break;
    case FetchEvent::Requesting:
    case FetchEvent::Relocated:
        break;
    }
}

void SearchCommand::rememberUnanswered(const FundStück& item, const FetchReport& report)
{
    if (m_arguments.printing.format != ItemFormat::Table)
        return;
    // Where one fetch fails, mostly many fail alike: they share the text.
    const QByteArray detail = *m_details.insert(report.detail);
    m_unanswered.insert(&item, { report.event, detail });
}

void SearchCommand::showProgress(const FundKnoten* knoten)
{
    if (!m_progress.isDue())
        return;
    const LanguageTable& language = m_session.language;
    m_progress.show(
        QStringLiteral("%1  %2: %3  %4")
            .arg(language.text("lang.search_searching"), language.text("lang.searchFoundUrls"),
                QString::number(m_session.foundItems.getAnzahl()), allgemein::fromSystem(knoten->inhalt.adresse)));
}

bool SearchCommand::save() const
{
    if (m_arguments.saveTo.isEmpty())
        return true;
    const auto error =
        SearchFile::save(m_arguments.saveTo, m_session.searchOptions, m_session.requestPrefs, m_session.foundItems);
    if (error) {
        complain(QStringLiteral("%1: %2: %3")
                     .arg(m_arguments.saveTo, m_session.language.text("lang.errWhileSavingFile"), *error));
    }
    return !error;
}

bool SearchCommand::print() const
{
    const ItemPrinter printer(m_session.language, [this](const FundStück& item) { return statusText(item); });
    return printToStandardOutput([&](QIODevice& out) {
        printer.print(out, m_arguments.printing.format, m_session.foundItems, m_arguments.printing.filter);
    });
}

QString SearchCommand::statusText(const FundStück& item) const
{
    const auto report = m_unanswered.constFind(&item);
    const bool answered = item.statusCode != 0 || report == m_unanswered.constEnd();
    return answered ? QString::number(item.statusCode) : twk::stateText(*report, m_session.language);
}
