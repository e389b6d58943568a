// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/SearchFileWriter.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "support/Text.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <csignal>
#include <cstring>
#include <functional>
#include <utility>

#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

/// Saves a file with its first or its second content.
using Save = std::function<void(bool second)>;

namespace {

/// A folder in memory where the system has one: on a disk, most kills would hit the waiting for it.
QString folderPattern()
{
    constexpr qint64 room = 300'000'000;
    const QFileInfo memory(QStringLiteral("/dev/shm"));
    const bool isUsable = memory.isWritable() && QStorageInfo(memory.filePath()).bytesAvailable() > room;
    return (isUsable ? memory.filePath() : QDir::tempPath()) + QLatin1String("/tst_Killed-XXXXXX");
}

} // namespace

/// Kills the program again and again while it saves. Each time the old or the new file must be there.
class tst_Killed : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void leavesTheOldOrTheNewFile_data();
    void leavesTheOldOrTheNewFile();

private:
    [[nodiscard]] QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_folder { folderPattern() };
    Session m_session;
    std::array<FundListe, 2> m_lists;
    quint32 m_seed = 0;
};

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int rounds = 20;
#else
constexpr int rounds = 100;
#endif

/// Saves in a child process that is killed after so many microseconds. False if it was faster than that.
bool isKilledWhileSaving(const Save& save, bool second, int microseconds)
{
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGALRM, [](int) { kill(getpid(), SIGKILL); });
        const itimerval timer { { 0, 0 }, { microseconds / 1'000'000, microseconds % 1'000'000 } };
        setitimer(ITIMER_REAL, &timer, nullptr);
        save(second);
        std::signal(SIGALRM, SIG_IGN); // too late: the child has saved
        _exit(0);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

/// Whether a file holds exactly this content. Mapped, not read: the files are large and compared often.
bool holds(const QString& fileName, const QByteArray& content)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly) || file.size() != content.size())
        return false;
    const uchar* const there = file.map(0, content.size());
    return there && std::memcmp(there, content.constData(), static_cast<size_t>(content.size())) == 0;
}

/// Removes unfinished files beside `file`. Returns whether there were any.
bool removeRests(const QString& file)
{
    const QFileInfo kept(file);
    bool removed = false;
    const QStringList names { kept.completeBaseName() + QLatin1String(".*"), QStringLiteral("*.tkc.tmp") };
    for (const QString& name : kept.dir().entryList(names, QDir::Files))
        removed = (name != kept.fileName() && kept.dir().remove(name)) || removed;
    return removed;
}

} // namespace

void tst_Killed::initTestCase()
{
    qputenv("TARNWICK_DATA", m_folder.path().toLocal8Bit());
    m_session.cookies.setCookieFolder(m_folder.path());
    // About 50 MB each.
    for (FundListe& list : m_lists) {
        for (int number = 0; number < 50'000; ++number) {
            FundStück item;
            item.adresse = (&list == &m_lists[0] ? "http://a:80/" : "http://b:80/") + QByteArray::number(number)
                + QByteArray(960, 'x');
            list.add(item);
        }
    }
    const int given = qEnvironmentVariableIntValue("TARNWICK_SEED");
    m_seed = given != 0 ? static_cast<quint32>(given) : QRandomGenerator::global()->generate() >> 1;
    qInfo("TARNWICK_SEED=%u", m_seed);
}

void tst_Killed::leavesTheOldOrTheNewFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<Save>("save");
    const Save saveSettings = [this](bool second) {
        // Long enough that many kills hit the writing.
        m_session.ownRequestPrefs.userAgent = QByteArray(second ? 8'000'000 : 9'000'000, second ? 'b' : 'a');
        m_session.views.columns = m_session.ownRequestPrefs.userAgent.left(second ? 100'000 : 200'000);
        (void)settings::saveSettings(m_session);
    };
    QTest::newRow("settings") << path("tarnwick.ini") << saveSettings;
    QTest::newRow("what the windows show") << path("views.ini") << saveSettings;
    QTest::newRow("a search file") << path("search.twk") << Save([this](bool second) {
        (void)searchFile::save(path("search.twk"), {}, {}, m_lists[second ? 1 : 0]);
    });
    QTest::newRow("cookies") << path("h.tkc") << Save([this](bool second) {
        QList<Cookie> cookies;
        for (const char* name : { "k", "l", "m", "n" })
            cookies += { "/", name, QByteArray(second ? 50'000 : 25'000, second ? 'b' : 'a') };
        m_session.cookies.saveCookies("h", cookies);
    });
}

void tst_Killed::leavesTheOldOrTheNewFile()
{
    QFETCH(QString, file);
    QFETCH(Save, save);
    save(true);
    const QByteArray second = contentOf(file);
    QElapsedTimer timer;
    timer.start();
    save(false);
    auto longest = static_cast<double>(timer.nsecsElapsed()) / 500; // microseconds, so that about half are killed
    const QByteArray first = contentOf(file);
    QVERIFY(first.size() > 5'000 && second.size() > 5'000 && first != second);

    QRandomGenerator random(m_seed);
    int killed = 0;
    int rests = 0;
    int changed = 0;
    bool isSecond = false;
    // On a busy machine the first bound may be wrong; more rounds correct it.
    const auto areEnough = [&] {
        return killed > rounds / 10 && changed > rounds / 10;
    };
    for (int round = 0; round < rounds || (!areEnough() && round < 10 * rounds); ++round) {
        const bool isKilled = isKilledWhileSaving(save, !isSecond, 1 + random.bounded(static_cast<int>(longest)));
        longest *= isKilled ? 1.2 : 0.85;
        const bool wasSecond = std::exchange(isSecond, holds(file, second));
        QVERIFY2(isSecond || holds(file, first), qPrintable(QStringLiteral("round %1").arg(round)));
        changed += isSecond != wasSecond ? 1 : 0;
        killed += isKilled ? 1 : 0;
        rests += removeRests(file) ? 1 : 0;
    }
    qInfo("%d killed while saving; %d new files, and the rests of %d", killed, changed, rests);
    QVERIFY(areEnough());
}

QTEST_GUILESS_MAIN(tst_Killed)
#include "tst_Killed.moc"
