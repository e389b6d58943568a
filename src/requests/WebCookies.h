// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "requests/WebCookieJar.h"

#include <QByteArrayList>
#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

class UnusableLines;

/// The cookies that follow RFC 6265, in the one file "cookies.txt" of the cookie folder, apart from those of
/// `CookieStore`. Cookies without an expiry are kept too, so that a login lasts from one start to the next.
///
/// Changes are collected in memory and written a moment later, so that a search does not write a file for each answer.
/// Several running programs can share the file: it is read again whenever another program has changed it, and the own
/// changes are merged into it under a `FolderLock`.
class WebCookies final : public QObject {
    Q_OBJECT

public:
    WebCookies();
    /// Calls `finish`.
    ~WebCookies() override;

    /// Chooses the folder of the file. `CookieStore::setCookieFolder` creates it.
    void setFolder(const QString& folder);
    [[nodiscard]] QString fileName() const;

    /// The complete Cookie line of a request for `url` with its line end; empty when no cookie applies.
    [[nodiscard]] QByteArray cookieLine(const QByteArray& url);
    /// Takes the values of the Set-Cookie fields of an answer of `url`. Those that the host may not set are ignored.
    void take(const QByteArrayList& setCookieValues, const QByteArray& url);
    /// Takes a cookie of a browser. False for one that cannot be stored or has expired.
    bool add(const QNetworkCookie& cookie);
    /// Writes the changes that are still waiting. False when that fails.
    bool finish();
    /// Deletes all cookies. False when the file cannot be deleted.
    [[nodiscard]] bool clear();
    /// The lines of the file that cannot be used. They stay in the file.
    [[nodiscard]] UnusableLines brokenLines() const;

signals:
    /// The cookies cannot be written to the file. Emitted once: later attempts would fail alike.
    void notStored();

private:
    void change(const QNetworkCookie& cookie);
    void writeWaitingSoon();
    [[nodiscard]] bool write();
    /// Reads the file anew if it is another one than at the last time.
    void refresh();

    QString m_folder;
    WebCookieJar m_jar;
    QList<QNetworkCookie> m_changes; ///< not written yet, the last one last
    QTimer m_timer;
    QElapsedTimer m_sinceDue;
    QDateTime m_fileTime; ///< of the file that `m_jar` was read from; invalid without a file
    qint64 m_fileSize = 0;
    bool m_hasFailed = false;
};
