// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CurrentSearch.h"
#include "app/LanguageChoice.h"
#include "app/Session.h"
#include "support/ScriptedServer.h"
#include "support/TestSeams.h"
#include "support/Text.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class tst_CurrentSearch : public QObject {
    Q_OBJECT

private slots:
    void tellsItsStates();
    void panels_data();
    void panels();
    void whatCannotBeReadChangesNothing_data();
    void whatCannotBeReadChangesNothing();
    void aTruncatedFileIsOpenedAsFarAsItGoes();
    void openingReplacesOptionsAndLanguages();
    void whatIsSavedIsWholeWhenTheSearchGoes();
    void aNewSearchOvertakesOpening();
    void nothingElseBeginsWhileAFileIsRead();
    void asksOfEachUnknownLine_data();
    void asksOfEachUnknownLine();

private:
    [[nodiscard]] QString fileWith(const QByteArray& content) const
    {
        const QString name = m_folder.filePath(QStringLiteral("x"));
        return writeFile(name, content) ? name : QString();
    }

    QTemporaryDir m_folder;
};

void tst_CurrentSearch::tellsItsStates()
{
    ScriptedServer server;
    server.page("/", "<a href='a'><a href='b'>");
    server.script("/a", { { okHeader("text/html") }, Afterwards::Stall });
    Session session;
    CurrentSearch search(session);
    QCOMPARE(search.status().state, SearchState::None);
    QVERIFY(search.status().canStart() && !search.status().canStop() && !search.status().canContinue());

    session.searchOptions.startUrl = server.origin();
    search.start();
    QVERIFY(!search.status().canStart() && search.status().canStop() && !search.status().canContinue());
    QTRY_COMPARE(search.status().found, 3);
    QTRY_COMPARE(server.paths().size(), 3);
    search.stop();
    QVERIFY(search.status().canStart() && !search.status().canStop() && search.status().canContinue());
    search.continueSearch();
    QTRY_COMPARE(search.status().state, SearchState::Finished);
    QVERIFY(search.status().canStart() && !search.status().canStop() && !search.status().canContinue());
}

void tst_CurrentSearch::panels_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* title, SearchState state, const char* text) {
        QTest::newRow(title) << static_cast<int>(state) << QString::fromLatin1(text);
    };
    const char* const rest = "|Start: http://h/|Depth: 3|Found urls: 7|Analysed urls: coming soon";
    row("none", SearchState::None, "no Search|Start: -|Depth: -|Found urls: -|Analysed urls: coming soon");
    row("searching", SearchState::Searching, QByteArray(QByteArray("State: Searching ...") + rest).constData());
    row("stopped", SearchState::Stopped, QByteArray(QByteArray("Search stopped") + rest).constData());
    row("finished", SearchState::Finished, QByteArray(QByteArray("Search finished") + rest).constData());
    row("loaded", SearchState::Loaded, QByteArray(QByteArray("Search opened.") + rest).constData());
}

void tst_CurrentSearch::panels()
{
    QFETCH(int, state);
    const SearchStatus status { static_cast<SearchState>(state), "http://h/", 3, 7 };
    QStringList texts;
    for (const QString& text : status.panels(LanguageTable()))
        texts += text;
    QTEST(texts.join(u'|'), "text");
}

void tst_CurrentSearch::whatCannotBeReadChangesNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("a missing file") << QByteArray();
    QTest::newRow("no search file") << QByteArray("<html>\r\n</html>\r\n");
}

void tst_CurrentSearch::whatCannotBeReadChangesNothing()
{
    QFETCH(QByteArray, content);
    Session session;
    session.searchOptions.startUrl = "http://kept/";
    session.search.fuegeFundHinzu("http://kept/", 0, {}, ReferenzTyp::Unbekannt);
    CurrentSearch search(session);
    QSignalSpy opened(&search, &CurrentSearch::opened);
    search.open(content.isEmpty() ? m_folder.filePath(QStringLiteral("none")) : fileWith(content));
    QTRY_COMPARE(opened.count(), 1);
    QCOMPARE(session.foundItems.getAnzahl(), 1);
    QCOMPARE(session.searchOptions.startUrl, "http://kept/");
    QCOMPARE(search.fileName(), QString());
    QCOMPARE(search.status().state, SearchState::None);
}

void tst_CurrentSearch::aTruncatedFileIsOpenedAsFarAsItGoes()
{
    Session session;
    CurrentSearch search(session);
    search.open(fileWith("StartUrl=http://h/\r\nResults:\r\nhttp://h:80/\r\nhttp://h:80/cut"));
    QTRY_COMPARE(search.status().state, SearchState::Loaded);
    QCOMPARE(urlsOf(session.foundItems), QByteArrayList { "http://h:80/" });
}

void tst_CurrentSearch::openingReplacesOptionsAndLanguages()
{
    Session session;
    session.searchOptions.followSub = FollowMode::Inside;
    session.searchOptions.unterpfade = { SubUrl::fromText("old.example") };
    session.searchOptions.analysis.forms = true;
    session.requestPrefs.sprachAuswahl = { "de German" };
    session.requestPrefs.userAgent = "kept";
    CurrentSearch search(session);
    search.open(fileWith("StartUrl=http://h/\r\nDepth=9\r\nSub=http://new\r\nLanguage=fr French\r\nResults:\r\n"
                         "http://h:80/\ttext/html\r\nhttp://h:80/b\timage/png\r\n"));
    QSignalSpy opened(&search, &CurrentSearch::opened);
    QTRY_COMPARE(opened.count(), 1);
    QCOMPARE(session.searchOptions.followSub, FollowMode::All);
    QCOMPARE(session.searchOptions.unterpfade.size(), size_t { 1 });
    QCOMPARE(session.searchOptions.unterpfade.front().text, "http://new");
    QVERIFY(session.searchOptions.analysis.forms);
    QCOMPARE(session.requestPrefs.sprachAuswahl, QList<QByteArray> { "fr French" });
    QCOMPARE(session.requestPrefs.userAgent, "kept");
    QCOMPARE(opened.first().at(2).value<MimeListe>().entries().size(), size_t { 2 });
    QCOMPARE(search.status().depthLimit, 9);

    // What is opened can be saved where it came from.
    QSignalSpy saved(&search, &CurrentSearch::saved);
    search.save(search.fileName());
    search.finishSaving();
    QCOMPARE(saved.count(), 1);
    QVERIFY(!saved.first().at(1).value<std::optional<QString>>());
    QVERIFY(contentOf(search.fileName()).contains("Results:\r\nhttp://h:80/\ttext/html\t0\t"));
}

void tst_CurrentSearch::whatIsSavedIsWholeWhenTheSearchGoes()
{
    constexpr int items = 300'000;
    Session session;
    CurrentSearch search(session);
    for (int number = 0; number < items; ++number)
        session.search.fuegeFundHinzu("http://h/" + QByteArray::number(number), 0, {}, ReferenzTyp::Anchor);
    QSignalSpy saved(&search, &CurrentSearch::saved);
    const QString path = m_folder.filePath(QStringLiteral("large.twk"));
    const QString other = m_folder.filePath(QStringLiteral("other.twk"));
    search.save(other);
    QCOMPARE(saved.count(), 0); // too much for one pass of the event loop
    search.save(path);
    QCOMPARE(saved.count(), 1);
    QCOMPARE(search.fileName(), other);
    session.searchOptions.startUrl = "http://127.0.0.1:0/";
    search.start();
    QCOMPARE(saved.count(), 2);
    QCOMPARE(contentOf(path), contentOf(other));
    QVERIFY(contentOf(path).startsWith("StartUrl=\r\n"));
    QCOMPARE(contentOf(path).count("\nhttp://h:80/"), items);
    QCOMPARE(search.fileName(), QString()); // the new search was not saved
}

void tst_CurrentSearch::aNewSearchOvertakesOpening()
{
    ScriptedServer server;
    server.script("/", { {}, Afterwards::Stall });
    Session session;
    CurrentSearch search(session);
    QSignalSpy opened(&search, &CurrentSearch::opened);
    search.open(fileWith("StartUrl=http://other/\r\nResults:\r\nhttp://other:80/\r\n"));
    session.searchOptions.startUrl = server.origin();
    search.start();
    QTRY_COMPARE(server.paths().size(), 1);
    QCOMPARE(opened.count(), 0);
    QCOMPARE(urlsOf(session.foundItems), QByteArrayList { server.origin() + '/' });
}

void tst_CurrentSearch::nothingElseBeginsWhileAFileIsRead()
{
    Session session;
    CurrentSearch search(session);
    search.open(fileWith("StartUrl=http://h/\r\nDepth=5\r\nResults:\r\n"));
    QTRY_COMPARE(search.status().state, SearchState::Loaded);
    QVERIFY(!search.status().isBusy() && search.status().canContinue());
    search.open(search.fileName());
    QVERIFY(search.status().isBusy() && !search.status().canStart() && !search.status().canContinue());
    QSignalSpy opened(&search, &CurrentSearch::opened);
    search.continueSearch();
    QCOMPARE(search.status().state, SearchState::Finished);
    search.open(search.fileName());
    QTRY_COMPARE(opened.count(), 1);
    // A search of its own has no file: saving it must not replace the one that was open.
    session.searchOptions.startUrl = "http://127.0.0.1:1/";
    session.searchOptions.tiefe = 8;
    search.start();
    QCOMPARE(search.fileName(), QString());
    QCOMPARE(search.status().depthLimit, 8);
}

void tst_CurrentSearch::asksOfEachUnknownLine_data()
{
    QTest::addColumn<bool>("goOn");
    QTest::addColumn<int>("asked");
    QTest::addColumn<QString>("caption");
    QTest::newRow("going on") << true << 2 << QStringLiteral("later");
    QTest::newRow("stopping") << false << 1 << QStringLiteral("&Beenden");
}

void tst_CurrentSearch::asksOfEachUnknownLine()
{
    QFETCH(bool, goOn);
    LanguageTable table;
    AnsweredMessages messages;
    messages.answer = goOn;
    LanguageChoice choice(table, messages);
    choice.selectBuiltIn(LanguageTable::German);
    const QString file = fileWith("a=1\nb=2\nmain.m_quit=later\n");
    choice.load(file);
    QTEST(static_cast<int>(messages.asked.size()), "asked");
    QCOMPARE(messages.asked.first().title, QStringLiteral("Parsing Error"));
    QCOMPARE(messages.asked.first().text,
        QStringLiteral("Not a valid l-Value for Translation: a\nContinue loading Language-file?\n%1:1")
            .arg(QDir::toNativeSeparators(file)));
    QTEST(table.text("main.m_quit"), "caption");
    QCOMPARE(choice.index(), LanguageChoice::file);

    choice.selectBuiltIn(LanguageTable::French);
    const QString none = m_folder.filePath(QStringLiteral("none"));
    choice.load(none);
    QCOMPARE(choice.index(), int { LanguageTable::French });
    QCOMPARE(messages.told.size(), 1);
    QCOMPARE(messages.told.first().text,
        QStringLiteral("Error while loading language file\n%1").arg(QDir::toNativeSeparators(none)));
    choice.selectBuiltIn(LanguageTable::French);
    QCOMPARE(choice.index(), int { LanguageTable::French });
    QCOMPARE(choice.fileName(), QString());
}

QTEST_GUILESS_MAIN(tst_CurrentSearch)

#include "tst_CurrentSearch.moc"
