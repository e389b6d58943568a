// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

/// A cookie as the store keeps it.
struct Cookie {
    QByteArray path;
    QByteArray name;
    QByteArray value;
};

/// The program's own cookies: one text file for each host, a line for each cookie. A cookie lives until it is replaced,
/// set to an empty value, or deleted with all others.
///
/// Cookies never name a file outside the folder, and none that would break its line is kept: both are refused like a
/// file that cannot be written.
class CookieStore {
public:
    /// Where the cookies are kept; the folder is created, which may fail without a word.
    void setCookieFolder(const QString& folder);

    /// Stores what the value of a Set-Cookie field says. What it cannot read, it leaves out.
    void takeSetCookie(const QByteArray& setCookieValue, const QByteArray& host) const;
    /// Stores a cookie in the place of any of the same name; an empty value only removes. False when the host cannot
    /// name a file, a text would break the line, or the file cannot be replaced; the old file is then untouched.
    bool saveCookie(
        const QByteArray& host, const QByteArray& path, const QByteArray& name, const QByteArray& value) const;
    /// As `saveCookie` for one after the other, with the host's file replaced once. All of them must be `isStorable`.
    bool saveCookies(const QByteArray& host, const QList<Cookie>& cookies) const;
    /// Whether the host can name a file, and the cookie keeps to its line.
    [[nodiscard]] bool isStorable(const QByteArray& host, const Cookie& cookie) const;
    /// Deletes the cookies of all hosts; that there are none is no failure. The files that cannot be deleted come back.
    [[nodiscard]] QStringList deleteAll() const;
    /// The request line with the cookies for a URL, line end included, from the broadest domain to the full host;
    /// empty when there is none.
    [[nodiscard]] QByteArray getCookieHeader(const QByteArray& url) const;

private:
    /// Empty when the host cannot name a file.
    [[nodiscard]] QString fileFor(QByteArrayView host) const;

    QString m_folder;
};
