// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "requests/CookieSource.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

struct sqlite3;
struct sqlite3_stmt;

/// Reads the "cookies.sqlite" of Firefox, also while Firefox runs. The browser keeps the database locked, so a copy of
/// the database and of its write-ahead log, which holds the newest rows, is read.
///
/// Firefox keeps a cookie once for each container, private window and embedding site, which the column
/// `originAttributes` tells apart. Rows where it is empty hold what the ordinary window has. They are read last, since
/// the last cookie of a name stays.
class FirefoxDatabase final : public CookieSource {
public:
    explicit FirefoxDatabase(const QString& fileName);
    ~FirefoxDatabase() override;
    Q_DISABLE_COPY_MOVE(FirefoxDatabase)

    [[nodiscard]] bool read(const Take& take) override;

    /// Whether a file begins like an SQLite database.
    [[nodiscard]] static bool isDatabase(const QString& fileName);
    /// The version of SQLite.
    [[nodiscard]] static QString libraryVersion();

private:
    void openCopy(const QString& copy);
    void prepare();
    void beginNext();
    void failHere();
    [[nodiscard]] QByteArray column(int number) const;

    QString m_shownName;
    QTemporaryDir m_folder;
    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_rows = nullptr;
    QList<const char*> m_conditions { "true" }; ///< of the queries that are still to be run
    QElapsedTimer m_sinceOpened;
    int m_steps = 0; ///< of the query, in thousands of instructions
};
