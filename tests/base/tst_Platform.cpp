// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Platform.h"
#include "base/folders.h"
#include "support/Text.h"

#include <QCoreApplication>
#include <QDir>
#include <QOperatingSystemVersion>
#include <QTemporaryDir>
#include <QTest>

static constexpr bool onWindows = QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows;

/// Tests the functions of the system on which it runs.
class tst_Platform : public QObject {
    Q_OBJECT

private slots:
    void readsTheRegistryWhereThereIsOne();
    void leavesBatchFilesToNobody();
    void keepsDataWhereItIsTold();
    void marksFilesFromTheInternet();
};

void tst_Platform::readsTheRegistryWhereThereIsOne()
{
    const QString folders = QStringLiteral("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders\\");
    const auto value = platform::registryText(folders, QStringLiteral("AppData"));
    QCOMPARE(value.has_value(), onWindows);
    QVERIFY(!value || QDir(*value).exists());
    QVERIFY(!platform::registryText(folders, QStringLiteral("No such value")));
    QVERIFY(!platform::registryText(QStringLiteral("No\\such\\key"), QStringLiteral("AppData")));
}

void tst_Platform::leavesBatchFilesToNobody()
{
    for (const char* name : { "c:\\x.bat", "X.CMD", "x.bat.", "x.cmd . " })
        QVERIFY2(platform::isRunByShell(QString::fromLatin1(name)) == onWindows, name);
    for (const char* name : { "c:\\x.exe", "bat", "x.bat.exe", "" })
        QVERIFY2(!platform::isRunByShell(QString::fromLatin1(name)), name);
}

void tst_Platform::keepsDataWhereItIsTold()
{
    const QTemporaryDir folder;
    qputenv("TARNWICK_DATA", folder.path().toLocal8Bit());
    QCOMPARE(QDir(allgemein::dataFolder()), QDir(folder.path()));
    qunsetenv("TARNWICK_DATA");
    const QDir program(QCoreApplication::applicationDirPath());
    QVERIFY(!allgemein::dataFolder().startsWith(QDir::toNativeSeparators(program.path())));
    QVERIFY(writeFile(program.filePath(QStringLiteral("portable.txt")), {}));
    const QString portable = allgemein::dataFolder();
    QVERIFY(QFile::remove(program.filePath(QStringLiteral("portable.txt"))));
    QCOMPARE(QDir(portable), QDir(program.filePath(QStringLiteral("Tarnwick"))));
}

void tst_Platform::marksFilesFromTheInternet()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("x.exe"));
    QVERIFY(writeFile(name, "content"));
    platform::markAsFromInternet(name);
    QCOMPARE(contentOf(name), "content");
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(QStringLiteral("x.exe")));
    // Where there are no streams, this makes a file with a name of its own, or fails.
    const bool hasStreams = onWindows && writeFile(name + QLatin1String(":probe"), "x")
        && QDir(folder.path()).entryList(QDir::Files).size() == 1;
    if (!hasStreams)
        QSKIP("This file system keeps no streams, where the mark would be.");
    QCOMPARE(contentOf(name + QLatin1String(":Zone.Identifier")), "[ZoneTransfer]\r\nZoneId=3\r\n");
}

QTEST_GUILESS_MAIN(tst_Platform)
#include "tst_Platform.moc"
