// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/lang.h"
#include "base/window/Captions.h"
#include "base/window/ColumnsTable.h"
#include "base/window/zahlenEingabe.h"
#include "downloads/DownloadQueue.h"
#include "downloads/window/DLManager.h"
#include "downloads/window/getDLStack.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "support/PlainExtras.h"
#include "support/ScriptedServer.h"
#include "support/Table.h"
#include "support/TestSeams.h"
#include "support/WindowDriver.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class tst_DLManager : public QObject, AnsweredSeams {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsEachDownload();
    void tellsWhyADownloadHasFailed_data();
    void tellsWhyADownloadHasFailed();
    void commandsWorkOnSelectedRows();
    void asksForTheMaximum_data();
    void asksForTheMaximum();
    void optionsAreThoseOfTheQueue();
    void opensWhatIsFinished();
    void takesDroppedUrls();
    void keepsUpWithManyRows();
    void addsARunOfNumberedUrls();
    void theIndexFollowsTheCursor();
    void asksBeforeItAddsVeryMany();
    void lettersAreTypedAndShown();

private:
    [[nodiscard]] QWidget& window() const { return *m_window; }
    [[nodiscard]] QAbstractItemModel& rows() const { return *m_window->list().model(); }
    [[nodiscard]] QByteArray cell(int row, int column) const { return rows().index(row, column).data().toByteArray(); }
    void add(const QByteArray& path) { m_queue->addDL(m_server->origin() + path, -1, {}); }
    /// Sets the text of a field in the dialog for numbered URLs.
    void type(const char* field, const char* text) const
    {
        control<QLineEdit>(*m_numbered, field).setText(QString::fromLatin1(text));
    }
    void number(const char* field, int value) const { control<zahlenEingabe>(*m_numbered, field).setValue(value); }
    [[nodiscard]] QString firstExample() const
    {
        return control<QListWidget>(*m_numbered, "beispiele").item(0)->text();
    }

    QTemporaryDir m_folder;
    PlainExtras m_extras;
    WebRules m_web;
    Connections m_connections { m_web };
    LanguageTable m_language;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<DownloadQueue> m_queue;
    std::unique_ptr<DLManager> m_window;
    std::unique_ptr<getDLStack> m_numbered;
};

void tst_DLManager::init()
{
    resetSeams();
    m_web = {};
    m_language.selectBuiltIn(LanguageTable::English);
    m_server = std::make_unique<ScriptedServer>();
    m_server->script("/f.zip", { { "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nabcd" } });
    m_queue = std::make_unique<DownloadQueue>(m_extras, m_connections);
    m_queue->settings().target = m_folder.path() + u'/';
    m_queue->settings().overwrite = true;
    m_window = std::make_unique<DLManager>(*m_queue, seams(m_language));
    m_window->show();
    m_numbered = std::make_unique<getDLStack>(*m_queue, seams(m_language), nullptr);
    m_numbered->show();
}

void tst_DLManager::cleanup()
{
    m_numbered.reset();
    m_window.reset();
    m_queue.reset();
    m_server.reset();
}

void tst_DLManager::showsEachDownload()
{
    QAbstractItemModelTester tester(&rows(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    add("/f.zip");
    m_queue->addDL("https://h/x", 7, {});
    QTRY_COMPARE(cell(0, DownloadModel::Status), "Finished");
    const QByteArrayList expected { "f.zip", "Finished", "4", "4", "100%",
        m_folder.filePath(QStringLiteral("f.zip")).toUtf8(), m_server->origin() + "/f.zip" };
    for (int column = 0; column < DownloadModel::ColumnCount; ++column)
        QCOMPARE(cell(0, column), expected[column]);
    QCOMPARE(rows().index(0, 0).data(DownloadModel::percentRole).toInt(), 100);
    QCOMPARE(cell(1, DownloadModel::Status), "Unsupported protocol");
    QCOMPARE(cell(1, DownloadModel::Size), "7");
    QTRY_VERIFY(control<QLabel>(window(), "summary").text().startsWith(QLatin1String("Running: 0   Waiting: 0")));
    QVERIFY(!m_window->grab().isNull()); // draws the progress bar
    QVERIFY(!m_window->list().actions().isEmpty());
    choose(window(), "c_usePercent");
    QCOMPARE(cell(0, DownloadModel::Progress), "1.00");
    m_language.selectBuiltIn(LanguageTable::German);
    QCOMPARE(cell(0, DownloadModel::Status), "Fertig");
}

void tst_DLManager::tellsWhyADownloadHasFailed_data()
{
    const auto row = table<QByteArray, QString>("url", "reason");
    row("refused", "http://127.0.0.1:1/x", QStringLiteral("Network failure: Connection refused"));
    row("a bad port", "http://127.0.0.1:99999/x", QStringLiteral("Network failure: Port 99999 is out of range"));
    row("silence", {}, QStringLiteral("Network failure: No byte came for 1 s"));
}

void tst_DLManager::tellsWhyADownloadHasFailed()
{
    QFETCH(QByteArray, url);
    m_server->script("/silent", { {}, Afterwards::Stall });
    m_web.silenceLimit = std::chrono::seconds(url.isEmpty() ? 1 : 0);
    m_queue->addDL(url.isEmpty() ? m_server->origin() + "/silent" : url, -1, {});
    QTRY_COMPARE(cell(0, DownloadModel::Status), "Network failure");
    QFETCH(QString, reason);
    QCOMPARE(rows().index(0, DownloadModel::Status).data(Qt::ToolTipRole).toString(), captions::toolTip(reason));
}

void tst_DLManager::commandsWorkOnSelectedRows()
{
    m_server->script("/stalls", { { okHeader("x/y") }, Afterwards::Stall });
    add("/stalls");
    add("/f.zip");
    QTRY_COMPARE(cell(1, DownloadModel::Status), "Finished");
    m_window->list().selectRow(0);
    QSignalSpy changed(m_queue.get(), &DownloadQueue::changed);
    choose(window(), "m_stopSel");
    QCOMPARE(m_queue->runningCount(), 0);
    QCOMPARE(changed.count(), 1);
    m_window->list().selectRow(1);
    choose(window(), "m_startSel");
    QCOMPARE(m_queue->runningCount(), 1);
    QTRY_COMPARE(m_queue->runningCount(), 0);

    choose(window(), "m_selectAll");
    m_messages.answer = false;
    choose(window(), "m_RemoveSel");
    QCOMPARE(m_queue->count(), 2);
    QCOMPARE(m_messages.askedText(), "Are you sure?");
    QVERIFY(m_messages.returnIsHarmless());
    m_messages.answer = true;
    QApplication::setActiveWindow(m_window.get());
    QTRY_VERIFY(m_window->isActiveWindow());
    QTest::keyClick(&m_window->list(), Qt::Key_Delete);
    QCOMPARE(m_queue->count(), 0);
    QCOMPARE(rows().rowCount(), 0);

    choose(window(), "m_DLactive");
    QCOMPARE(m_messages.told.last().text, QStringLiteral("coming soon"));
    QVERIFY(control<QAction>(window(), "m_DLactive").isChecked() && m_queue->settings().active);
    m_window->close();
    QVERIFY(!m_window->isVisible());
}

void tst_DLManager::asksForTheMaximum_data()
{
    const auto row = table<QByteArray, int, int>("typed", "maximum", "asked");
    row("a number", "7", 7, 1);
    row("a half goes to the even one", "2.5", 2, 1);
    row("out of range, then cancelled", "0 11", 3, 3);
    row("no number, then one", "x 10", 10, 2);
    row("beyond the bounds before it is rounded", "0.6 10.4", 3, 3);
    row("what reads as no number, but as a value", "nan inf", 3, 3);
    row("cancelled", "", 3, 1);
}

void tst_DLManager::asksForTheMaximum()
{
    QFETCH(QByteArray, typed);
    m_messages.typed = QString::fromLatin1(typed).split(u' ', Qt::SkipEmptyParts);
    choose(window(), "m_maxDL");
    QTEST(m_queue->settings().maxDL, "maximum");
    QTEST(static_cast<int>(m_messages.told.size()), "asked");
    QCOMPARE(m_messages.toldText(), "3");
}

void tst_DLManager::optionsAreThoseOfTheQueue()
{
    DownloadSettings& settings = m_queue->settings();
    const QString target = settings.target;
    const std::pair<const char*, bool&> options[] = { { "c_DirByUrl", settings.naming.dirByUrl },
        { "c_RenameForMS", settings.naming.renameForMs }, { "c_extByMIME", settings.naming.extByMime },
        { "m_overwriteExistingFiles", settings.overwrite }, { "c_startImm", settings.startImmediately },
        { "c_usePercent", settings.usePercent }, { "m_relHTMLref", settings.relHTMLref },
        { "m_removeFinished", settings.removeFinished } };
    for (const auto& [entry, option] : options) {
        const bool before = option;
        choose(window(), entry);
        QVERIFY2(option != before, entry);
        option = before;
        m_window->showSettings();
        QCOMPARE(control<QAction>(window(), entry).isChecked(), before);
    }

    for (const char* const entry : { "m_targetSel", "m_maxDL" })
        QVERIFY(m_window->list().actions().contains(&control<QAction>(window(), entry)));
    m_dialogs.choice = QStringLiteral("/chosen/folder");
    choose(window(), "m_targetSel");
    QCOMPARE(m_dialogs.requests.first().proposal, target);
    QCOMPARE(settings.target, QDir::toNativeSeparators(QStringLiteral("/chosen/folder/")));
}

void tst_DLManager::opensWhatIsFinished()
{
    add("/f.zip");
    m_queue->addDL("https://h/x", -1, {});
    QTRY_COMPARE(cell(0, DownloadModel::Status), "Finished");
    choose(window(), "m_selectAll");
    choose(window(), "m_openCompletedSelected");
    choose(window(), "m_openTarget");
    emit m_window->list().doubleClicked(rows().index(0, 0));
    const QString file = m_folder.filePath(QStringLiteral("f.zip"));
    QCOMPARE(m_shell.openedFiles, (QStringList { file, m_folder.path(), file }));
    QVERIFY(m_messages.told.isEmpty());
    m_shell.opens = false;
    choose(window(), "m_openCompletedSelected");
    QVERIFY(m_messages.toldText().contains(file.toUtf8()));
}

void tst_DLManager::takesDroppedUrls()
{
    QVERIFY(drop(window(), { QUrl(QStringLiteral("http://127.0.0.1:1/a b")), QUrl(QStringLiteral("file:///etc/x")) }));
    QCOMPARE(m_queue->count(), 1);
    QCOMPARE(m_queue->entryAt(0).url, "http://127.0.0.1:1/a%20b");
}

void tst_DLManager::keepsUpWithManyRows()
{
    m_queue->settings().startImmediately = false;
    QSignalSpy inserted(&rows(), &QAbstractItemModel::rowsInserted);
    for (int number = 0; number < 100'000; ++number)
        add('/' + QByteArray::number(number));
    QTRY_COMPARE(rows().rowCount(), 100'000);
    QCOMPARE(inserted.count(), 1);
    m_queue->remove({ { 10, 79'989 } });
    QCOMPARE(rows().rowCount(), 20'020);
    QCOMPARE(cell(10, DownloadModel::Filename), "79990");
    // Many rows that are no neighbours are removed in one step.
    RowRuns odd;
    for (int row = 1; row < 20'020; row += 2)
        odd.push_back({ row, row });
    m_queue->remove(odd);
    QCOMPARE(rows().rowCount(), 10'010);
    QCOMPARE(cell(10'009, DownloadModel::Filename), "99998");
    QCOMPARE(m_queue->rowOf(m_queue->entryAt(5000).id), 5000);
}

void tst_DLManager::addsARunOfNumberedUrls()
{
    m_queue->settings().startImmediately = false;
    type("startUrl", "x.y.z/img.jpg");
    type("quellUrl", "http://r/");
    number("Pos", 16);
    number("min", 9);
    number("max", 11);
    number("minStellen", 2);
    QCOMPARE(firstExample(), QStringLiteral("http://x.y.z/img09.jpg"));
    QSignalSpy confirmed(m_numbered.get(), &getDLStack::confirmed);
    click(*m_numbered, "b_ok");
    QCOMPARE(confirmed.count(), 1);
    QVERIFY(!m_numbered->isVisible());
    QTRY_COMPARE(m_queue->count(), 3);
    QCOMPARE(m_queue->entryAt(2).url, "http://x.y.z/img11.jpg");
    QCOMPARE(m_queue->entryAt(2).referer, "http://r/");
    QCOMPARE(m_queue->entryAt(2).size, -1);
}

void tst_DLManager::theIndexFollowsTheCursor()
{
    QApplication::setActiveWindow(m_numbered.get());
    auto& url = control<QLineEdit>(*m_numbered, "startUrl");
    url.setFocus();
    QTRY_VERIFY(url.hasFocus());
    const auto pos = [this] {
        return control<zahlenEingabe>(*m_numbered, "Pos").value();
    };
    QTest::keyClicks(&url, QStringLiteral(" h/a.jpg"));
    QCOMPARE(pos(), 14);
    for (int step = 0; step < 4; ++step)
        QTest::keyClick(&url, Qt::Key_Left);
    QCOMPARE(pos(), 10);
    QCOMPARE(firstExample(), QStringLiteral("http://h/a1.jpg"));
    url.setText(QStringLiteral("http://h/"));
    url.setCursorPosition(9);
    QCOMPARE(pos(), 9);
}

void tst_DLManager::asksBeforeItAddsVeryMany()
{
    m_queue->settings().startImmediately = false;
    type("startUrl", "http://.z/");
    click(*m_numbered, "b_ok");
    QCOMPARE(m_messages.told.value(0).title, QStringLiteral("Invalid user input"));
    type("startUrl", "https://h/");
    click(*m_numbered, "b_ok");
    QCOMPARE(m_messages.toldText(1), "Only http URLs can be downloaded.");
    type("startUrl", "h/");
    number("min", 11);
    click(*m_numbered, "b_ok");
    QCOMPARE(m_messages.toldText(2), "The first index is greater than the last one.");
    number("min", 1);
    number("max", 2'000'000'000);
    m_messages.answer = false;
    click(*m_numbered, "b_ok");
    QCOMPARE(m_messages.asked.size(), 1);
    QVERIFY(m_messages.returnIsHarmless());
    QVERIFY(m_numbered->isVisible());
    QCOMPARE(m_queue->count(), 0);
    // The first run is added in parts, and the second one after it.
    number("max", 40'000);
    click(*m_numbered, "b_ok");
    number("min", 100'001);
    number("max", 100'002);
    click(*m_numbered, "b_ok");
    QTRY_COMPARE(m_queue->count(), 40'002);
}

void tst_DLManager::lettersAreTypedAndShown()
{
    auto& max = control<zahlenEingabe>(*m_numbered, "max");
    max.setValue(27);
    toggle(*m_numbered, "r_indexType(4)");
    QCOMPARE(max.getTextWert(), QStringLiteral("A@"));
    QCOMPARE(max.value(), 27);
    max.selectAll();
    QTest::keyClicks(&max, QStringLiteral("ab"));
    QCOMPARE(max.value(), 29);
    QTest::keyClicks(&max, QStringLiteral("1"));
    QCOMPARE(max.value(), 29);
    click(*m_numbered, "r_indexType(5)");
    QCOMPARE(max.getTextWert(), QStringLiteral("ab"));
    click(*m_numbered, "r_indexType(2)");
    QCOMPARE(max.getTextWert(), QStringLiteral("29"));
}

QTEST_MAIN(tst_DLManager)

#include "tst_DLManager.moc"
