// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "requests/CookieFile.h"
#include "requests/WebCookies.h"

#include <QByteArrayList>
#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

/// The program's own cookies: a file for each host. A cookie lives until it is replaced, set to an empty value, or
/// deleted with all others.
///
/// Hosts come from servers and files. A host that would name a file outside the folder, and a cookie that would break
/// its line, are refused in the same way as a file that cannot be written. The number and the size of the cookies that
/// a server can set are bounded.
///
/// Several running programs can share a folder without losing each other's cookies: each change reads the file anew and
/// replaces it under a `FolderLock`. Cookies of servers never wait for the lock: they are kept in memory, sent from
/// there, and written a moment later. After a second without the lock they are written all the same.
class CookieStore final : public QObject {
    Q_OBJECT

public:
    /// How many cookies a host may set. When it sets more, the oldest lines of its file are dropped, imported ones too.
    static constexpr qsizetype mostOfAHost = 200;
    /// In bytes: the greatest length of name, value and path together of a cookie that a server sets.
    static constexpr qsizetype longest = 4096;

    CookieStore();
    /// Calls `finish`.
    ~CookieStore() override;

    /// Chooses the folder of the cookie files, and creates it. A failure is ignored; storing a cookie will fail. A
    /// folder that is new or inside the program's own is closed to other users.
    void setCookieFolder(const QString& folder);
    [[nodiscard]] const QString& folder() const { return m_folder; }
    /// The cookies by RFC 6265, in the same folder. `finish` and `deleteAll` are for them too.
    [[nodiscard]] WebCookies& web() { return m_web; }

    /// Stores the cookies of an answer, in the order of its Set-Cookie fields. Values that cannot be parsed or are too
    /// long are ignored.
    void takeSetCookies(const QByteArrayList& setCookieValues, const QByteArray& host);
    /// Writes the cookies that are still waiting for the lock.
    void finish();
    /// Stores a cookie and drops any other of the same name; an empty value only drops. False when the host cannot
    /// name a file, a text would break the line, or the file cannot be replaced; the old file is then untouched.
    bool saveCookie(const QByteArray& host, const QByteArray& path, const QByteArray& name, const QByteArray& value);
    /// As `saveCookie` for each in turn, but the host's file is replaced only once. All of them must be `isStorable`.
    bool saveCookies(const QByteArray& host, const QList<Cookie>& cookies);
    /// Whether the host can name a file and the cookie fits on one line.
    [[nodiscard]] bool isStorable(const QByteArray& host, const Cookie& cookie) const;
    /// Deletes the cookies of all hosts. Returns the files that cannot be deleted.
    [[nodiscard]] QStringList deleteAll();
    /// The Cookie line of a request for `url` with its line end, cookies of the broadest domain first; empty when no
    /// cookie applies.
    [[nodiscard]] QByteArray getCookieHeader(const QByteArray& url) const;

signals:
    /// The cookies of an answer cannot be written to the folder. Emitted once: more answers would fail alike.
    void notStored();

private:
    void writeWaitingSoon();
    void writeWaiting();
    /// Adds cookies to the file of a host and keeps its last `most` lines. A file that would not change is not written.
    bool write(const QByteArray& host, const QList<Cookie>& cookies, qsizetype most);
    /// Empty when the host cannot name a file.
    [[nodiscard]] QString fileFor(QByteArrayView host) const;

    QString m_folder;
    WebCookies m_web;
    QHash<QByteArray, QList<Cookie>> m_waiting; ///< cookies of servers that are not written yet, by host
    QElapsedTimer m_sinceWaiting;
    QTimer m_retry;
    bool m_hasFailed = false;
};
