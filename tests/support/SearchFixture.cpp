// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/SearchFixture.h"

void SearchFixture::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_server = std::make_unique<ScriptedServer>();
    m_extras = {};
    m_options = {};
    m_options.startUrl = m_server->origin();
    m_options.maxDepth = false;
    m_run = std::make_unique<SearchRun>(m_list, m_extras, m_connections);
    m_reports.clear();
    connect(m_run.get(), &SearchRun::reported, this, [this](FundKnoten* node, const FetchReport& report) {
        m_reports += { node->inhalt.adresse, report };
    });
}

void SearchFixture::cleanup()
{
    m_run.reset();
    m_server.reset();
    m_list.clear();
}

QByteArrayList SearchFixture::urls(const QByteArrayList& paths) const
{
    QByteArrayList urls;
    for (const QByteArray& path : paths)
        urls += path.startsWith('/') ? url(path) : path;
    return urls;
}

FundStück SearchFixture::item(const QByteArray& path) const
{
    for (const FundKnoten* node = m_list.getStart(); node; node = node->naechster()) {
        if (node->inhalt.adresse == url(path) || node->inhalt.adresse == path)
            return node->inhalt;
    }
    return {};
}

QList<FetchEvent> SearchFixture::eventsOf(const QByteArray& path) const
{
    QList<FetchEvent> events;
    for (const auto& [adresse, report] : m_reports) {
        if (adresse == url(path) || adresse == path)
            events += report.event;
    }
    return events;
}

QByteArrayList SearchFixture::detailsOf(const QByteArray& path) const
{
    QByteArrayList details;
    for (const auto& [adresse, report] : m_reports) {
        if (adresse == url(path))
            details += report.detail;
    }
    return details;
}

bool SearchFixture::searchToEnd()
{
    QSignalSpy finished(m_run.get(), &SearchRun::finished);
    m_run->starteSuche(m_options);
    return (finished.count() == 1 || finished.wait(20'000)) && finished.count() == 1 && !m_run->isSearching();
}
