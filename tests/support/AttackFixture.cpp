// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/AttackFixture.h"

#include "base/folders.h"
#include "results/window/FoundsView.h"

#include <QDirIterator>

#include <utility>

void AttackFixture::init()
{
    WindowFixture::init();
    QVERIFY(QDir().mkpath(file("1/2/3/4/target")));
    restart();
}

void AttackFixture::restart()
{
    start();
    // Deep enough that a path upwards still ends inside the test's own folder.
    m_target = std::exchange(downloads().target, allgemein::withTrailingSeparator(file("1/2/3/4/target")));
    m_session->windows.autoOpenDLM = false;
}

void AttackFixture::openFile(const QByteArray& content)
{
    QVERIFY(writeFile(file("in.twk"), content));
    m_window->open(file("in.twk"));
    QTRY_VERIFY(the<QAction>("m_requests").isEnabled());
    choose("m_selectAll");
}

void AttackFixture::download(int row)
{
    m_window->findChild<FoundsView*>()->selectRows({ { row, row } }, QItemSelectionModel::ClearAndSelect);
    const int before = m_session->downloads.count();
    choose("m_selectedDownload");
    QCOMPARE(m_session->downloads.count(), before + 1);
    waitForDownloads();
}

void AttackFixture::downloadAgain()
{
    const int last = m_session->downloads.count() - 1;
    m_session->downloads.queue({ { last, last } });
    waitForDownloads();
}

void AttackFixture::waitForDownloads()
{
    QTRY_COMPARE(m_session->downloads.runningCount() + m_session->downloads.waitingCount(), 0);
}

void AttackFixture::importCookies(const QByteArray& content)
{
    QVERIFY(writeFile(file("cookies.txt"), content));
    m_dialogs.choice = file("cookies.txt");
    m_session->requestPrefs.useCookies = true;
    choose("m_requests");
    click("b_cookiesImportFF");
    QTRY_COMPARE(m_messages.told.size(), 1);
}

QStringList AttackFixture::filesBelow(const QString& folder)
{
    QStringList files;
    QDirIterator all(
        folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        all.next();
        if (!all.fileInfo().isDir() || all.fileInfo().isSymbolicLink())
            files += QDir(folder).relativeFilePath(all.filePath());
    }
    files.sort();
    return files;
}

QStringList AttackFixture::downloaded() const
{
    QStringList files = filesBelow(file("1/2/3/4"));
    for (const QString& file : filesBelow(file("1"))) {
        if (!file.startsWith(QLatin1String("2/3/4/")))
            files += QLatin1String("outside: ") + file;
    }
    return files;
}
