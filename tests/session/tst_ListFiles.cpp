// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/WindowFixture.h"

/// Imports and exports of lists, and programs started on rows.
class tst_ListFiles : public WindowFixture {
    Q_OBJECT

private slots:
    void init();
    void importsUrlsAndGoesOnFromThem();
    void importsOnlyWhatIsNew();
    void importsWhatItExports();
    void exportsWhatIsShownOrSelected();
    void anExportEndsBeforeItsItemsGo();
    void aSaveThatFailsKeepsTheWindow();
    void tellsWhatCannotBeReadOrWritten();
    void opensRows();
    void opensFewRowsUnasked();
    void opensRowsByAProgram();

private:
    void importList(const QByteArray& urls);
    void importNumbers(int count);
    [[nodiscard]] QByteArrayList urls() const { return urlsOf(m_session->foundItems); }
    [[nodiscard]] QByteArray exported(const char* entry);
};

void tst_ListFiles::init()
{
    WindowFixture::init();
    start();
}

/// Imports a list of URLs and waits for its rows.
void tst_ListFiles::importList(const QByteArray& urls)
{
    m_dialogs.choice = file("list.txt");
    QVERIFY(writeFile(m_dialogs.choice, urls));
    choose("m_importUrlList");
    QTRY_VERIFY(the<QAction>("m_importUrlList").isEnabled());
    QTRY_COMPARE(details().model()->rowCount(), m_session->foundItems.getAnzahl());
}

void tst_ListFiles::importNumbers(int count)
{
    QByteArray list;
    for (int number = 0; number < count; ++number)
        list += "http://h/" + QByteArray::number(number) + '\n';
    importList(list);
}

/// The content that an export writes; null if it writes nothing.
QByteArray tst_ListFiles::exported(const char* entry)
{
    m_dialogs.choice = file("exported");
    QFile::remove(m_dialogs.choice);
    choose(entry);
    return QTest::qWaitFor([this] { return QFile::exists(m_dialogs.choice); }) ? contentOf(m_dialogs.choice)
                                                                               : QByteArray();
}

void tst_ListFiles::importsUrlsAndGoesOnFromThem()
{
    m_server->page("/a", "<a href='/b'>");
    m_server->page("/b", "");
    QVERIFY(!the<QAction>("m_searchContinue").isEnabled());
    importList(m_server->origin() + "/a\r\nmailto:x\r\n\r\n" + m_server->origin().mid(7) + "/c\nno URL\n");
    QCOMPARE(urls(), (QByteArrayList { m_server->origin() + "/a", m_server->origin() + "/c" }));
    QCOMPARE(m_messages.told.size(), 1);
    QVERIFY(m_messages.toldText().endsWith("list.txt\nLines without a usable URL: 2, 5"));
    choose("m_searchContinue");
    QTRY_COMPARE(panel(1), "Search finished");
    QCOMPARE(urls().value(2), m_server->origin() + "/b");
    QCOMPARE(m_server->paths().size(), 3);
}

void tst_ListFiles::importsOnlyWhatIsNew()
{
    importList("http://h/1\nhttp://h/1\nh/1\nhttp://h/2\n");
    importList("http://h:80/2\nhttp://h/3\n");
    QCOMPARE(urls(), (QByteArrayList { "http://h:80/1", "http://h:80/2", "http://h:80/3" }));
    importList("javascript:x\n");
    QCOMPARE(m_messages.told.size(), 1);
    QCOMPARE(m_session->foundItems.getAnzahl(), 3);
}

void tst_ListFiles::importsWhatItExports()
{
    m_server->page("/", "<a href='x,=1.png'><img src='%C3%A9.png'>");
    m_server->script("/x,=1.png", { { "HTTP/1.1 200 OK\r\nContent-Type: =cmd\r\nContent-Length: 2048\r\n\r\n" } });
    importList(m_server->origin());
    choose("m_searchContinue");
    QTRY_COMPARE(panel(1), "Search finished");
    choose("m_einheit(1)"); // The list shows KiB; files always hold bytes.
    const QByteArray csv = exported("m_exportAsCsv");
    QCOMPARE(csv.count('\n'), 4);
    QVERIFY(csv.contains("\t'=cmd\t2048\t1\t200\tanchor\t\t"));

    start();
    choose("m_importCsv");
    QCOMPARE(m_messages.told.value(0).text, m_session->language.text("lang.CSVNote"));
    QCOMPARE(m_messages.told.value(0).title, QStringLiteral("Note"));
    QTRY_COMPARE(m_session->foundItems.getAnzahl(), 3);
    QTRY_COMPARE(details().model()->rowCount(), 3);
    QCOMPARE(exported("m_exportAsCsv"), csv);
    m_dialogs.choice = file("exported");
    choose("m_importCsv");
    QCOMPARE(m_messages.told.size(), 1); // The note is shown once.
}

void tst_ListFiles::exportsWhatIsShownOrSelected()
{
    importList("http://h/a.html\nhttp://h/b.png\nhttp://h/c.html\n");
    const QByteArray all = "http://h:80/a.html\r\nhttp://h:80/b.png\r\nhttp://h:80/c.html\r\n";
    QCOMPARE(exported("m_exportAsUrlList"), all);
    QCOMPARE(m_dialogs.requests.last().types.first().pattern, QStringLiteral("*.txt"));
    details().selectRow(1);
    QCOMPARE(exported("m_exportAsUrlList"), all);
    QVERIFY(m_messages.asked.isEmpty());
    choose("m_selectedInvert");
    QCOMPARE(exported("m_exportAsUrlList"), "http://h:80/a.html\r\nhttp://h:80/c.html\r\n");
    QCOMPARE(m_messages.askedText(), "Export the 2 selected rows only?");
    m_messages.answer = false;
    QCOMPARE(exported("m_exportAsUrlList"), all);
    m_messages.closes = true;
    const qsizetype dialogs = m_dialogs.requests.size();
    choose("m_exportAsUrlList");
    QCOMPARE(m_dialogs.requests.size(), dialogs);

    the<QLineEdit>("neuFilterText").setText(QStringLiteral(".png"));
    click("urlFilterSwitch(1)");
    click("addFilterText");
    QTRY_COMPARE(details().model()->rowCount(), 1);
    QCOMPARE(exported("m_exportAsUrlList"), "http://h:80/b.png\r\n");
}

void tst_ListFiles::anExportEndsBeforeItsItemsGo()
{
    importNumbers(20'000);
    m_dialogs.choice = file("exported.csv");
    choose("m_exportAsCsv");
    QVERIFY(!QFile::exists(m_dialogs.choice));
    beginSearch();
    QCOMPARE(contentOf(m_dialogs.choice).count('\n'), 20'001);
    QTRY_COMPARE(panel(1), "Search finished");

    importNumbers(20'000);
    choose("m_exportAsUrlList");
    m_window->close();
    QCOMPARE(contentOf(m_dialogs.choice).count('\n'), 20'001);
}

void tst_ListFiles::aSaveThatFailsKeepsTheWindow()
{
    // More than is written in one piece.
    QByteArray urls;
    for (int number = 0; number < 4500; ++number)
        urls += "http://h/" + QByteArray::number(number) + QByteArray(8000, 'x') + '\n';
    importList(urls);
    m_dialogs.choice = file("x.twk");
    choose("m_searchSaveAs");
    QVERIFY(!QFile::exists(m_dialogs.choice));
    QVERIFY(m_messages.told.isEmpty());
    QVERIFY(QDir().mkpath(file("x.twk/folder")));
    m_window->close();
    QVERIFY(m_window->isVisible());
    QCOMPARE(m_messages.told.value(0).title, QStringLiteral("Error while saving"));
    m_window->close();
    QVERIFY(!m_window->isVisible());
}

void tst_ListFiles::tellsWhatCannotBeReadOrWritten()
{
    importList("http://h/1\n");
    m_dialogs.choice = file("none.txt");
    choose("m_importUrlList");
    QTRY_COMPARE(m_messages.told.size(), 1);
    QVERIFY(m_messages.toldText(0).startsWith("Error while opening\n"));
    m_dialogs.choice = file("no/folder.txt");
    choose("m_exportAsUrlList");
    QTRY_COMPARE(m_messages.told.size(), 2);
    QVERIFY(m_messages.toldText(1).startsWith("Error while saving\n"));
    QCOMPARE(m_session->foundItems.getAnzahl(), 1);
}

void tst_ListFiles::opensRows()
{
    importList("http://h/1\ngopher://h/\nhttps://h/2\nhttp://h:99999/\n");
    choose("m_selectAll");
    choose("m_selectedOpen");
    QTRY_COMPARE(m_shell.openedUrls.size(), 2);
    QCOMPARE(m_shell.openedUrls.first(), QUrl(QStringLiteral("http://h:80/1")));
    QCOMPARE(m_messages.toldText(), "Only http, https and ftp URLs are opened. Left out: 2");
    choose("m_markedOpen");
    QCOMPARE(m_shell.openedUrls.size(), 2);
    details().selectRow(0);
    choose("m_selectedMark");
    choose("m_markedOpen");
    QCOMPARE(m_shell.openedUrls.size(), 3);
    details().setFocus();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(&details(), Qt::Key_Return);
    QCOMPARE(m_shell.openedUrls.size(), 4);
    m_shell.opens = false;
    choose("m_selectAll");
    choose("m_selectedOpen");
    QCOMPARE(m_shell.openedUrls.size(), 6);
    QCOMPARE(m_messages.told.last().text,
        m_session->language.text("lang.errWhileOpening") + QStringLiteral("\nhttp://h:80/1\n... and 1 more"));
}

void tst_ListFiles::opensFewRowsUnasked()
{
    importNumbers(21);
    m_messages.answer = false;
    choose("m_selectAll");
    choose("m_selectedOpen");
    QCOMPARE(m_messages.askedText(), "21 pages would be opened. Go on?");
    QVERIFY(m_messages.returnIsHarmless());
    QVERIFY(m_shell.openedUrls.isEmpty());
    m_messages.answer = true;
    choose("m_selectedOpen");
    QTRY_COMPARE(m_shell.openedUrls.size(), 21);
}

void tst_ListFiles::opensRowsByAProgram()
{
    importList("http://h/1\nhttp://h/2\nhttp://h/3\n");
    details().selectRow(1);
    choose("m_selectedMark");
    details().selectRow(2);
    choose("m_markedOpenBy");
    the<QLineEdit>("programmPfad").setText(QStringLiteral("p"));
    the<QLineEdit>("parameter").setText(QStringLiteral("-x "));
    confirm("dialog_openBy");
    choose("m_selectedOpenBy");
    QCOMPARE(the<QLineEdit>("parameter").text(), QStringLiteral("-x "));
    confirm("dialog_openBy");
    QTRY_COMPARE(m_shell.started.size(), 2);
    QCOMPARE(m_shell.started.first().line(), QStringLiteral("\"p\" -x http://h:80/2"));
    QCOMPARE(m_shell.started.last().line(), QStringLiteral("\"p\" -x http://h:80/3"));
}

QTEST_MAIN(tst_ListFiles)

#include "tst_ListFiles.moc"
