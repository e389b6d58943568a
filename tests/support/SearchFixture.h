// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/SearchRun.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "support/PlainExtras.h"
#include "support/ScriptedServer.h"
#include "support/Text.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

/// What the tests of a search share: a scripted server and a search of it, both new for each test, and a record of what
/// the search reported.
class SearchFixture : public QObject {
    Q_OBJECT

protected slots:
    void init();
    void cleanup();

protected:
    [[nodiscard]] QByteArray url(const QByteArray& path) const { return m_server->origin() + path; }
    [[nodiscard]] QByteArrayList urls(const QByteArrayList& paths) const;
    [[nodiscard]] FundStück item(const QByteArray& path) const;
    [[nodiscard]] QList<FetchEvent> eventsOf(const QByteArray& path) const;
    [[nodiscard]] QByteArrayList detailsOf(const QByteArray& path) const;
    [[nodiscard]] bool searchToEnd();

    std::unique_ptr<ScriptedServer> m_server;
    PlainExtras m_extras;
    WebRules m_web;
    Connections m_connections { m_web };
    SearchOptions m_options;
    FundListe m_list;
    std::unique_ptr<SearchRun> m_run;
    QList<QPair<QByteArray, FetchReport>> m_reports;
};
