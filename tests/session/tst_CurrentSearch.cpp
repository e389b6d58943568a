// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/CurrentSearch.h"
#include "session/Session.h"
#include "support/ScriptedServer.h"
#include "support/Text.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class tst_CurrentSearch : public QObject {
    Q_OBJECT

private slots:
    void init();
    void openingReplacesOptionsAndLanguages();
    void whatIsSavedIsWholeWhenTheSearchGoes();
    void aNewSearchOvertakesOpening();
    void nothingElseBeginsWhileAFileIsRead();

private:
    [[nodiscard]] QString fileWith(const QByteArray& content) const
    {
        const QString name = m_folder.filePath(QStringLiteral("x"));
        return writeFile(name, content) ? name : QString();
    }

    QTemporaryDir m_folder;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<CurrentSearch> m_search;
};

void tst_CurrentSearch::init()
{
    m_search.reset();
    m_session = std::make_unique<Session>();
    m_search = std::make_unique<CurrentSearch>(*m_session);
}

void tst_CurrentSearch::openingReplacesOptionsAndLanguages()
{
    m_session->searchOptions.followSub = FollowMode::Inside;
    m_session->searchOptions.unterpfade = { SubUrl::fromText("old.example") };
    m_session->searchOptions.analysis.forms = true;
    m_session->requestPrefs.sprachAuswahl = { "de German" };
    m_session->requestPrefs.userAgent = "kept";
    m_session->filter.setBranch(SubUrl::fromText("old.example"));
    m_search->open(fileWith("StartUrl=http://h/\r\nDepth=9\r\nSub=http://new\r\nLanguage=fr French\r\nResults:\r\n"
                            "http://h:80/\ttext/html\r\nhttp://h:80/b\timage/png\r\n"));
    QSignalSpy opened(m_search.get(), &CurrentSearch::opened);
    QTRY_COMPARE(opened.count(), 1);
    QCOMPARE(m_session->searchOptions.followSub, FollowMode::All);
    QCOMPARE(m_session->searchOptions.unterpfade.size(), size_t { 1 });
    QCOMPARE(m_session->searchOptions.unterpfade.front().text, "http://new");
    QVERIFY(m_session->searchOptions.analysis.forms);
    QCOMPARE(m_session->requestPrefs.sprachAuswahl, QList<QByteArray> { "fr French" });
    QCOMPARE(m_session->requestPrefs.userAgent, "kept");
    QCOMPARE(opened.first().at(2).value<MimeTypeList>().entries().size(), size_t { 2 });
    QCOMPARE(m_search->status().depthLimit, 9);
    QVERIFY(!m_session->filter.branch);
}

void tst_CurrentSearch::whatIsSavedIsWholeWhenTheSearchGoes()
{
    constexpr int items = 300'000;
    for (int number = 0; number < items; ++number)
        m_session->search.fuegeFundHinzu("http://h/" + QByteArray::number(number), 0, {}, ReferenceType::Anchor);
    QSignalSpy saved(m_search.get(), &CurrentSearch::saved);
    const QString path = m_folder.filePath(QStringLiteral("large.twk"));
    const QString other = m_folder.filePath(QStringLiteral("other.twk"));
    m_search->save(other);
    QCOMPARE(saved.count(), 0); // saving takes more than one pass of the event loop
    m_search->save(path);
    QCOMPARE(saved.count(), 1);
    QCOMPARE(m_search->fileName(), other);
    m_session->searchOptions.startUrl = "http://127.0.0.1:0/";
    m_search->start();
    QCOMPARE(saved.count(), 2);
    QCOMPARE(contentOf(path), contentOf(other));
    QVERIFY(contentOf(path).startsWith("StartUrl=\r\n"));
    QCOMPARE(contentOf(path).count("\nhttp://h:80/"), items);
    QCOMPARE(m_search->fileName(), QString()); // the new search has no file yet
}

void tst_CurrentSearch::aNewSearchOvertakesOpening()
{
    ScriptedServer server;
    server.script("/", { {}, Afterwards::Stall });
    QSignalSpy opened(m_search.get(), &CurrentSearch::opened);
    m_search->open(fileWith("StartUrl=http://other/\r\nResults:\r\nhttp://other:80/\r\n"));
    m_session->searchOptions.startUrl = server.origin();
    m_search->start();
    QTRY_COMPARE(server.paths().size(), 1);
    QCOMPARE(opened.count(), 0);
    QCOMPARE(urlsOf(m_session->foundItems), QByteArrayList { server.origin() + '/' });
}

void tst_CurrentSearch::nothingElseBeginsWhileAFileIsRead()
{
    m_search->open(fileWith("StartUrl=http://h/\r\nDepth=5\r\nResults:\r\n"));
    QTRY_COMPARE(m_search->status().state, SearchState::Loaded);
    QVERIFY(!m_search->status().isBusy() && m_search->status().canContinue());
    m_search->open(m_search->fileName());
    QVERIFY(m_search->status().isBusy() && !m_search->status().canStart() && !m_search->status().canContinue());
    QSignalSpy opened(m_search.get(), &CurrentSearch::opened);
    m_search->continueSearch();
    QCOMPARE(m_search->status().state, SearchState::Finished);
    m_search->open(m_search->fileName());
    QTRY_COMPARE(opened.count(), 1);
    // A new search has no file: saving it must not replace the file that was open before.
    m_session->searchOptions.startUrl = "http://127.0.0.1:1/";
    m_session->searchOptions.tiefe = 8;
    m_search->start();
    QCOMPARE(m_search->fileName(), QString());
    QCOMPARE(m_search->status().depthLimit, 8);
}

QTEST_GUILESS_MAIN(tst_CurrentSearch)

#include "tst_CurrentSearch.moc"
