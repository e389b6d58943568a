// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// A cookie as the store keeps it.
struct Cookie {
    QByteArray path;
    QByteArray name;
    QByteArray value;
};

/// The file of one host: a line for each cookie, "path TAB name TAB value". Other lines are kept and never sent.
namespace cookieFile {

/// In bytes. Longer lines are not sent.
constexpr qsizetype longestLine = 64 * 1024;

/// The whole file; empty if there is no file, nothing if it is not ordinary, larger than 64 MiB, or cannot be read.
[[nodiscard]] std::optional<QByteArray> read(const QString& fileName);
/// Replaces a file in one step. Only the owner can read it: cookies are as good as passwords. False on failure, also
/// when `content` is larger than `read` would take.
[[nodiscard]] bool replace(const QString& fileName, const QByteArray& content);

/// `content` with each of the cookies in the place of any other of the same name, at the end; an empty value only
/// drops. Of more than `most` lines the last ones stay.
[[nodiscard]] QByteArray merged(QByteArrayView content, const QList<Cookie>& cookies, qsizetype most);

/// Appends " name=value;" for each cookie whose path is the request's directory or one above it.
void appendPairs(QByteArray& pairs, QByteArrayView content, QByteArrayView directory);
/// Whether `appendPairs` can ever send a cookie with this path.
[[nodiscard]] bool canBeSent(QByteArrayView path);

} // namespace cookieFile
