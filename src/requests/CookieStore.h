// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
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
/// file that cannot be written. What servers can pile up is bounded. The files are for their owner alone.
class CookieStore {
public:
    /// How many cookies a host may set; beyond, the oldest lines of its file are dropped, imported ones too.
    static constexpr qsizetype mostOfAHost = 200;
    /// How long name, value and path may be together, in bytes, of a cookie that a host sets.
    static constexpr qsizetype longest = 4096;

    /// Where the cookies are kept; the folder is created, which may fail without a word.
    void setCookieFolder(const QString& folder);

    /// Stores what the values of an answer's Set-Cookie fields say, in their order. What it cannot read or is too long,
    /// it leaves out.
    void takeSetCookies(const QByteArrayList& setCookieValues, const QByteArray& host) const;
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
    /// Of the lines that result, the last `most` are kept. A file that would not change is left alone.
    bool replace(const QByteArray& host, const QList<Cookie>& cookies, qsizetype most) const;
    /// Empty when the host cannot name a file.
    [[nodiscard]] QString fileFor(QByteArrayView host) const;

    QString m_folder;
};
