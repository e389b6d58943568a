// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/FirefoxDatabase.h"

#include "base/folders.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <utility>

namespace {

constexpr const char* table = "moz_cookies";
/// The columns that every version has, the expiry and the secure flag, and the condition on a row.
constexpr const char* query = "select host,path,name,value,%1,%2 from moz_cookies where %3;";

/// In bytes. Texts of cookies are far shorter.
constexpr int longestText = 64 * 1024;
/// The bound of the query's work. The cookies of a browser need a small part of it; a hostile file may have put a view
/// in the table's place whose query never ends.
constexpr int mostSteps = 5'000;
constexpr int instructionsPerStep = 1000;
/// In milliseconds, including the time of other events between the steps.
constexpr qint64 longestRead = 60'000;

const QString logEnding = QStringLiteral("-wal");

/// Size and time of a file; they change when somebody writes to it.
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

/// Copies a database and its log in the state of one moment: when the browser moves rows from the log to the database
/// meanwhile, both are copied again. False if they keep changing or cannot be copied.
bool copyDatabase(const QString& from, const QString& to)
{
    constexpr int mostAttempts = 5;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const auto before = stampOf(from);
        if (!copyAnew(from + logEnding, to + logEnding) || !copyAnew(from, to))
            return false;
        if (stampOf(from) == before)
            return true;
    }
    return false;
}

bool hasColumn(sqlite3* database, const char* ofTable, const char* column)
{
    return sqlite3_table_column_metadata(
               database, nullptr, ofTable, column, nullptr, nullptr, nullptr, nullptr, nullptr)
        == SQLITE_OK;
}

/// The expression of a column in a query; "0" when the version that wrote the database has no such column.
QString columnOrZero(sqlite3* database, const char* column)
{
    return QLatin1String(hasColumn(database, table, column) ? column : "0");
}

/// In seconds. Firefox 142 and later store milliseconds: no cookie lives until the year 5000.
qint64 expiryFrom(qint64 stored)
{
    constexpr qint64 latest = 100'000'000'000;
    constexpr qint64 ofSecond = 1000;
    return stored > latest ? stored / ofSecond : stored;
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
    QFile file(fileName);
    if (!CookieSource::open(file))
        return;
    if (file.size() + QFileInfo(fileName + logEnding).size() > largestFile)
        fail(ImportError::TooLarge, m_shownName);
    else if (!m_folder.isValid())
        fail(ImportError::File, m_shownName + u'\n' + m_folder.errorString());
    else if (isJson(file))
        fail(ImportError::Json, m_shownName);
    else if (!allgemein::canBeReplaced(fileName + logEnding) || !copyDatabase(fileName, copy))
        fail(ImportError::File, m_shownName);
    else
        openCopy(copy);
}

FirefoxDatabase::~FirefoxDatabase()
{
    sqlite3_finalize(m_rows);
    sqlite3_close(m_database);
}

void FirefoxDatabase::openCopy(const QString& copy)
{
    const QByteArray path = QDir::toNativeSeparators(copy).toUtf8();
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(path.constData(), &m_database, flags, nullptr) == SQLITE_OK)
        prepare();
    else
        failHere();
    // Removed while open, where the system allows it: so no copy of the cookies stays behind if the program dies.
    QFile::remove(copy);
    QFile::remove(copy + logEnding);
}

/// The file may be hostile: neither its content nor its schema is trusted.
void FirefoxDatabase::prepare()
{
    m_sinceOpened.start();
    sqlite3_limit(m_database, SQLITE_LIMIT_LENGTH, longestText);
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_progress_handler(m_database, instructionsPerStep, &countStep, &m_steps);
    if (hasColumn(m_database, "cookies", "host_key")) {
        fail(ImportError::Chromium, m_shownName);
        return;
    }
    if (hasColumn(m_database, table, "originAttributes"))
        m_conditions = { "originAttributes<>''", "originAttributes='' or originAttributes is null" };
    beginNext();
}

void FirefoxDatabase::beginNext()
{
    const QByteArray sql = QString::fromLatin1(query)
                               .arg(columnOrZero(m_database, "expiry"), columnOrZero(m_database, "isSecure"),
                                   QLatin1String(m_conditions.takeFirst()))
                               .toLatin1();
    if (sqlite3_prepare_v2(m_database, sql.constData(), -1, &m_rows, nullptr) != SQLITE_OK)
        failHere();
}

void FirefoxDatabase::failHere()
{
    fail(ImportError::Database, QString::fromUtf8(sqlite3_errmsg(m_database)) + u'\n' + m_shownName);
}

bool FirefoxDatabase::read(const Take& take)
{
    if (!m_rows)
        return false;
    // The schema can define computed columns, so even a single row may take long.
    if (m_sinceOpened.hasExpired(longestRead))
        sqlite3_interrupt(m_database);
    const int result = sqlite3_step(m_rows);
    if (result == SQLITE_ROW) {
        take({ column(0), { column(1), column(2), column(3) }, sqlite3_column_int(m_rows, 5) != 0,
            expiryFrom(sqlite3_column_int64(m_rows, 4)) });
        return true;
    }
    if (result != SQLITE_DONE)
        failHere();
    sqlite3_finalize(std::exchange(m_rows, nullptr));
    // Rows of the next query may lie before the damage that ended this one.
    if (!m_conditions.isEmpty())
        beginNext();
    return m_rows != nullptr;
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
    return allgemein::isOrdinaryFile(fileName) && file.open(QIODevice::ReadOnly)
        && file.read(beginning.size()) == beginning;
}

QString FirefoxDatabase::libraryVersion()
{
    return QString::fromLatin1(sqlite3_libversion());
}
