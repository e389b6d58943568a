// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/FirefoxDatabase.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <utility>

namespace {

constexpr const char* query = "select host,path,name,value from moz_cookies;";

/// In bytes. No text of a cookie is nearly as long.
constexpr int longestText = 1024 * 1024;
/// A query on a table of as many cookies as a browser keeps takes some of these; one on what else a file may have put
/// in the table's place may never end.
constexpr int mostSteps = 5'000;
constexpr int instructionsPerStep = 1000;

/// What tells whether a file was written to.
QPair<qint64, QDateTime> stampOf(const QString& fileName)
{
    const QFileInfo file(fileName);
    return { file.size(), file.lastModified() };
}

bool copyAnew(const QString& from, const QString& to)
{
    QFile::remove(to);
    return !QFile::exists(from) || QFile::copy(from, to);
}

/// Copies a database and its log as they were at one time: when the browser moves rows from the log to the database
/// meanwhile, the copies are made again.
bool copyDatabase(const QString& from, const QString& to)
{
    constexpr int mostAttempts = 5;
    const QString log = QStringLiteral("-wal");
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const auto before = stampOf(from);
        if (!copyAnew(from + log, to + log) || !copyAnew(from, to))
            return false;
        if (stampOf(from) == before)
            break;
    }
    return true;
}

int countStep(void* steps)
{
    return ++*static_cast<int*>(steps) > mostSteps ? 1 : 0;
}

} // namespace

FirefoxDatabase::FirefoxDatabase(const QString& fileName)
    : m_shownName(QDir::toNativeSeparators(fileName))
{
    const QString copy = m_folder.filePath(QStringLiteral("cookies.sqlite"));
    if (QFileInfo(fileName).size() > largestFile)
        fail(ImportError::TooLarge, m_shownName);
    else if (!m_folder.isValid())
        fail(ImportError::File, m_shownName + u'\n' + m_folder.errorString());
    else if (QFile file(fileName); !file.open(QIODevice::ReadOnly))
        fail(ImportError::File, m_shownName + u'\n' + file.errorString());
    else if (!copyDatabase(fileName, copy))
        fail(ImportError::File, m_shownName);
    else
        open(copy);
}

FirefoxDatabase::~FirefoxDatabase()
{
    sqlite3_finalize(m_rows);
    sqlite3_close(m_database);
}

void FirefoxDatabase::open(const QString& copy)
{
    const QByteArray path = QDir::toNativeSeparators(copy).toUtf8();
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(path.constData(), &m_database, flags, nullptr) == SQLITE_OK)
        prepare();
    else
        failHere();
}

/// Anybody may have written the file: neither what is in it nor what it asks for is trusted.
void FirefoxDatabase::prepare()
{
    sqlite3_limit(m_database, SQLITE_LIMIT_LENGTH, longestText);
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_progress_handler(m_database, instructionsPerStep, &countStep, &m_steps);
    if (sqlite3_prepare_v2(m_database, query, -1, &m_rows, nullptr) != SQLITE_OK)
        failHere();
}

void FirefoxDatabase::failHere()
{
    fail(ImportError::Database, QString::fromUtf8(sqlite3_errmsg(m_database)) + u'\n' + m_shownName);
}

std::optional<ForeignCookie> FirefoxDatabase::next()
{
    if (!m_rows)
        return {};
    const int result = sqlite3_step(m_rows);
    if (result == SQLITE_ROW)
        return ForeignCookie { column(0), { column(1), column(2), column(3) } };
    if (result != SQLITE_DONE)
        failHere();
    sqlite3_finalize(std::exchange(m_rows, nullptr));
    return {};
}

QByteArray FirefoxDatabase::column(int number) const
{
    const unsigned char* const text = sqlite3_column_text(m_rows, number);
    return QByteArray(reinterpret_cast<const char*>(text), sqlite3_column_bytes(m_rows, number));
}

bool FirefoxDatabase::isDatabase(const QString& fileName)
{
    constexpr QByteArrayView beginning("SQLite format 3\0", 16);
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) && file.read(beginning.size()) == beginning;
}

QString FirefoxDatabase::libraryVersion()
{
    return QString::fromLatin1(sqlite3_libversion());
}
