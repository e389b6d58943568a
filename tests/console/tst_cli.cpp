// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "support/ConsoleFixture.h"
#include "support/Table.h"
#include "support/Text.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <csignal>

#include <sys/stat.h>
#endif

/// Runs the console program as a script would.
class tst_cli : public QObject, ConsoleFixture {
    Q_OBJECT

private slots:
    void init() { reset(); }

    void printsEachFormat();
    void printsTableForPeople();
    void savesWhatListPrints();
    void filters_data();
    void filters();
    void optionsReachTheWire();
    void refusesArguments_data();
    void refusesArguments();
    void refusesSaveTargets();
    void readsWhatIsTyped();
    void endsWhatHasNoEnd();
    void failedSaveStillPrints();
    void fullStandardOutputIsAFailure();
    void listTellsWhatIsWrong();
    void jsonLeadsToTheSamePlace();
    void helpsOnEveryCommand();
    void namesVersionCommitAndLibrary();
    void interruptionPrintsAndSaves_data();
    void interruptionPrintsAndSaves();
};

void tst_cli::printsEachFormat()
{
    const Result tsv = run(search());
    QCOMPARE(tsv.status, 0);
    QCOMPARE(tsv.err, "");
    const QByteArray expected = "URL/\ttext/html\t-1\t0\t3\t200\t0\t\t\n"
                                "URL/a.html\ttext/html\t-1\t1\t3\t200\t1\t\tURL/\n"
                                "URL/b.png\timage/png\t2048\t1\t4\t200\t5\tde\tURL/\n"
                                "mailto://mailto:0/\t\t0\t2\t0\t0\t1\t\tURL/a.html\n";
    QCOMPARE(tsv.out, expected);
    QCOMPARE(run(search("--format urls")).out, "URL/\nURL/a.html\nURL/b.png\nmailto://mailto:0/\n");

    const QByteArrayList lines = run(search("-f json")).out.split('\n');
    QCOMPARE(lines.size(), 5);
    QVERIFY(QJsonDocument::fromJson(lines[0]).object()[QStringLiteral("size")].isNull());
    QCOMPARE(QJsonDocument::fromJson(lines[2]), QJsonDocument::fromJson(R"({ "url": "URL/b.png", "mime": "image/png",
        "size": 2048, "depth": 1, "state": 4, "status": 200, "reference": "img", "language": "de", "referer": "URL/" })"));
}

void tst_cli::printsTableForPeople()
{
    m_server->page(
        "/", "<a href='b.png'><a href='mailto:me'><a href='early'><a href='http://127.0.0.1:70000/\x1b[2J'>");
    m_server->script("/early", { {} });
    const Result result = run(search("--format table"));
    QCOMPARE(result.status, 0);
    QByteArrayList lines = result.out.split('\n');
    QCOMPARE(lines.size(), 7);
    QCOMPARE(lines[0].simplified(), "Filename MIME-Content Size Depth Status Ref.-type Language Url");
    QCOMPARE(lines[2].simplified(), "b.png image/png 2.0 KiB 1 200 anchor de URL/b.png");
    QVERIFY(lines[3].contains("Unsupported protocol"));
    QVERIFY(lines[4].contains("Prematurely disconnected"));
    QVERIFY(lines[5].contains("Network failure: "));
    QVERIFY(!result.out.contains('\x1b'));
    lines.removeLast();
    for (const QByteArray& line : lines)
        QCOMPARE(QString::fromUtf8(line).lastIndexOf(QLatin1String("  ")) + 2, lines[0].indexOf("Url"));
}

void tst_cli::savesWhatListPrints()
{
    const Result searched = run(search("--save @a.twk"));
    QCOMPARE(searched.status, 0);
    const Result listed = run("list @a.twk");
    QCOMPARE(listed.status, 0);
    QCOMPARE(listed.out, searched.out);
    const QByteArray start = "StartUrl=" + m_server->origin() + "\r\nMaxDepth=0\r\n";
    QVERIFY(contentOf(file("a.twk")).startsWith(start));

    // Filters narrow the printed items, but not the saved ones.
    const Result narrowed = run(search("-o @b.twk --url-part .png"));
    QCOMPARE(narrowed.out.count('\n'), 1);
    QCOMPARE(contentOf(file("b.twk")), contentOf(file("a.twk")));
}

void tst_cli::filters_data()
{
    const auto row = table<QByteArray>("found");
    row("--mime TEXT/html", "http://h:80/\nhttp://h:80/d/a\n");
    row("--mime text/html --mime image/png", "http://h:80/\nhttp://h:80/d/a\nhttp://h:80/d/b\n");
    row("--not-mime text/html", "http://h:80/d/b\nhttp://i:80/c\n");
    row("--url-part /d/ --url-part i:", "http://h:80/d/a\nhttp://h:80/d/b\nhttp://i:80/c\n");
    row("--not-url-part /d/", "http://h:80/\nhttp://i:80/c\n");
    row("--min-depth 1 --max-depth 1", "http://h:80/d/a\nhttp://i:80/c\n");
    row("--max-depth 0", "http://h:80/\n");
    row("--min-size 2K", "http://h:80/d/b\n");
    row("--max-size 2047", "http://h:80/\n");
    row("--max-size 1M", "http://h:80/\nhttp://h:80/d/b\n");
    row("--branch h", "http://h:80/\nhttp://h:80/d/a\nhttp://h:80/d/b\n");
    row("--branch http://h/d/", "http://h:80/d/a\nhttp://h:80/d/b\n");
}

void tst_cli::filters()
{
    QVERIFY(writeFile(file("x.twk"),
        "Results:\r\n"
        "http://h:80/\ttext/html\t100\t0\t3\t200\t0\t\t\r\n"
        "http://h:80/d/a\ttext/html\t-1\t1\t3\t200\t1\t\t\r\n"
        "http://h:80/d/b\timage/png\t2048\t2\t4\t200\t5\t\t\r\n"
        "http://i:80/c\t?\t-1\t1\t4\t200\t1\t\t\r\n"));
    const Result result = run("list @x.twk -f urls " + QByteArray(QTest::currentDataTag()));
    QCOMPARE(result.status, 0);
    QTEST(result.out, "found");
}

void tst_cli::optionsReachTheWire()
{
    m_server->page(
        "/", "<a href='in/x'><a href='/out'><img src='i'><script src='s'></script><form action='in/f'></form>");
    m_server->relocation("/in/x", "/in/y");
    const Result result =
        run(search("--inside URL/in/ --references anchors,forms --no-relocation --referer http://from/ "
                   "--user-agent agent/7 --language de,en --depth 2"));
    QCOMPARE(result.status, 0);
    QCOMPARE(sorted(m_server->paths()), (QByteArrayList { "/", "/in/f", "/in/x" }));
    QCOMPARE(m_server->requests().constFirst(),
        "GET / HTTP/1.1\r\nHost: 127.0.0.1\r\nAccept: */*\r\nConnection: close\r\nUser-Agent: agent/7\r\n"
        "Accept-Language: de;q=1, en;q=0.5\r\nReferer: http://from/\r\n\r\n");

    const Result plain = run(search("--no-referer --outside URL/in/ --references src"));
    QCOMPARE(plain.status, 0);
    QCOMPARE(sorted(m_server->paths().sliced(3)), (QByteArrayList { "/", "/i", "/s" }));
    QVERIFY(!m_server->requests().constLast().contains("Referer"));
    QVERIFY(m_server->requests().constLast().contains("\r\nUser-Agent: Tarnwick 1 ("));
}

void tst_cli::refusesArguments_data()
{
    QTest::addColumn<QByteArray>("arguments");
    for (const char* arguments : { "", "nonsense", "search", "search .org", "search h x", "search h --depth -1",
             "search h --depth two", "search h --depth", "search h --nonsense", "search h --references anchors,all",
             "search h --inside a --outside b", "search h --language xx", "search h --format xml", "list",
             "list x --mime a --not-mime b", "list x --url-part a --not-url-part b", "list x --min-size 1G",
             "list x --max-size 99999999999999999M", "list no/such/file.twk", "cookies", "cookies eat", "cookies show",
             "cookies import", "cookies clear x", "cookies import @none.sqlite", "cookies show http:///" })
        QTest::newRow(*arguments ? arguments : "nothing") << QByteArray(arguments);
}

void tst_cli::refusesArguments()
{
    QFETCH(QByteArray, arguments);
    const Result result = run(arguments);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.out, "");
    QVERIFY2(result.err.startsWith("tarnwick-cli: ") && result.err.count('\n') == 1, result.err.constData());
}

void tst_cli::readsWhatIsTyped()
{
    const QByteArray host = m_server->origin().sliced(7);
    const Result result =
        run("search HTTP://" + host + "/ --cookies @cookies --inside " + host + " --inside " + host + "/docs -f urls");
    QCOMPARE(result.status, 0);
    QCOMPARE(result.out, "URL/\nURL/a.html\nURL/b.png\n");
    QCOMPARE(result.err, "tarnwick-cli: '" + host + "/docs' is read as http://" + host + "/\n");
}

void tst_cli::endsWhatHasNoEnd()
{
    const Result full = run(search("--max-urls 2 --save @a.twk -f urls"));
    QCOMPARE(full.status, 2);
    QCOMPARE(full.out, "URL/\nURL/a.html\n");
    QVERIFY2(full.err.contains("2 URLs") && full.err.count('\n') == 1, full.err.constData());
    QCOMPARE(contentOf(file("a.twk")).count("/a.html\t"), 1);

    m_server->script("/a.html", { {}, Afterwards::Stall });
    QVERIFY(run(search("--time-limit 1 -f table")).out.contains("Network failure: 5:No byte came for 1 s"));
    const Result download = run("download @target URL/a.html --time-limit 1");
    QCOMPARE(download.status, 2);
    QVERIFY2(download.out.startsWith("F\t"), download.out.constData());
}

void tst_cli::refusesSaveTargets()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder.twk")));
    QByteArrayList targets { "--save @folder.twk", "--save @none/a.twk", "--save=" };
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(qPrintable(file("pipe.twk")), 0600), 0);
    targets += "--save @pipe.twk";
#endif
    for (const QByteArray& target : targets) {
        const Result result = run(search(target));
        QCOMPARE(result.status, 1);
        QVERIFY2(result.err.startsWith("tarnwick-cli: --save") && result.err.count('\n') == 1, result.err.constData());
    }
    QVERIFY(m_server->paths().isEmpty());
}

void tst_cli::failedSaveStillPrints()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    m_server->script("/b.png", { {}, Afterwards::Stall });
    QProcess process;
    QSignalSpy finished(&process, &QProcess::finished);
    start(process, search("--save @folder/a.twk"));
    QTRY_VERIFY(m_server->paths().contains("/b.png"));
    QVERIFY(QDir(file("folder")).removeRecursively());
    m_server->release("/b.png", okHeader("image/png"));
    QVERIFY(finished.wait(60'000));
    QCOMPARE(process.exitCode(), 2);
    QCOMPARE(process.readAllStandardOutput().count('\n'), 4);
    QVERIFY(process.readAllStandardError().contains("a.twk: Error while saving: "));
}

void tst_cli::fullStandardOutputIsAFailure()
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        QSKIP("This system has no device that is always full.");
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    QSignalSpy finished(&process, &QProcess::finished);
    start(process, search());
    QVERIFY(finished.wait(60'000));
    QCOMPARE(process.exitCode(), 2);
    QVERIFY(process.readAllStandardError().contains("standard output: "));
}

void tst_cli::listTellsWhatIsWrong()
{
    QVERIFY(writeFile(
        file("x.twk"), "\x1b[2J=1\r\nResults:\r\nhttp://h/\x1b]0;x\a\t\x1b[2J\t0\t0\t0\t0\t0\t\x1b\t\r\nv\t"));
    const Result result = run("list @x.twk --format table");
    QCOMPARE(result.status, 1);
    QCOMPARE(result.out.count('\n'), 2);
    const QByteArrayList errors = result.err.split('\n');
    QCOMPARE(errors.size(), 3);
    QVERIFY(errors[0].trimmed().endsWith("x.twk:1: Invalid attribut:: %1B[2J"));
    QVERIFY(errors[1].trimmed().endsWith("x.twk: Unexpected end of file"));
    // No control character reaches the terminal.
    QVERIFY(!result.err.contains('\x1b') && !result.out.contains('\x1b') && !result.out.contains('\a'));
}

void tst_cli::jsonLeadsToTheSamePlace()
{
    // A character of the system's code page, and a byte that has no meaning in most code pages.
    const QByteArray umlaut = allgemein::toSystem(u"\u00e4");
    QVERIFY(writeFile(file("x.twk"), "Results:\r\nhttp://h:80/" + umlaut + "\t\t-1\r\nhttp://h:80/\x81\t\t0\r\n"));
    const QByteArray out = run("list @x.twk --format json").out;
    QVERIFY(out.contains("\"url\":\"http://h:80/\xc3\xa4\"") && out.contains("\"size\":null"));
    const bool isText = !allgemein::fromSystem("\x81").contains(QChar::ReplacementCharacter);
    QVERIFY(out.contains(isText ? "\"url\":\"http://h:80/\xc2\x81\"" : "\"url\":\"http://h:80/%81\""));
    QVERIFY(out.contains("\"size\":0"));
}

void tst_cli::helpsOnEveryCommand()
{
    for (const char* arguments : { "--help", "-h", "search --help", "list --help", "cookies --help", "cookies show -h",
             "cookies import -h", "cookies clear -h", "download --help", "number -h" }) {
        const Result result = run(arguments);
        QCOMPARE(result.status, 0);
        QVERIFY2(result.out.contains("Example:\n  tarnwick-cli "), arguments);
    }
}

void tst_cli::namesVersionCommitAndLibrary()
{
    const QRegularExpression line(
        QStringLiteral("^tarnwick-cli \\d+\\.\\d+\\.\\d+ \\((commit [0-9a-f]{7,}\\+?, )?Qt %1\\)\\R$")
            .arg(QRegularExpression::escape(QLatin1String(qVersion()))));
    for (const char* option : { "--version", "-v" }) {
        const QByteArray out = run(option).out;
        QVERIFY2(line.match(QString::fromLatin1(out)).hasMatch(), out.constData());
    }
}

void tst_cli::interruptionPrintsAndSaves_data()
{
#ifdef Q_OS_UNIX
    const auto row = table<int>("signal");
    row("Ctrl+C", SIGINT);
    row("the system asks the program to end", SIGTERM);
    row("the terminal is closed", SIGHUP);
#endif
}

void tst_cli::interruptionPrintsAndSaves()
{
#ifdef Q_OS_UNIX
    QFETCH(int, signal);
    m_server->page("/", "<a href='1'><a href='2'><a href='3'><a href='4'>");
    for (const char* path : { "/1", "/2", "/3", "/4" })
        m_server->script(path, { {}, Afterwards::Stall });
    QProcess process;
    QSignalSpy finished(&process, &QProcess::finished);
    start(process, search("--save @a.twk"));
    QTRY_COMPARE(m_server->paths().size(), 3);
    ::kill(static_cast<pid_t>(process.processId()), signal);
    QVERIFY(finished.wait(20'000));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 130);
    const QByteArray out = process.readAllStandardOutput();
    QCOMPARE(out.count('\n'), 5);
    // Those that were cut off can be continued, like those whose turn had not come.
    QCOMPARE(out.count("\t\t0\t1\t0\t0\t1\t"), 4);
    QCOMPARE(run("list @a.twk").out, QByteArray(out).replace(m_server->origin(), "URL"));
#else
    QSKIP("Interrupting another console is tested by hand on this system.");
#endif
}

QTEST_GUILESS_MAIN(tst_cli)
#include "tst_cli.moc"
