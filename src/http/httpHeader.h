// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/AnswerHead.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QByteArrayView>

class RequestExtras;

/// The text of requests, and the readers of single response-header fields.
///
/// A header, as the readers take it, is the received text up to and including the line end before the blank line. Each
/// reader searches all of it, so a field is also found at the end of a longer name. Stored searches depend on that, so
/// it must not change.
namespace httpHeader {

/// The GET request for `url`. A value that would break its line is percent-encoded.
[[nodiscard]] QByteArray baueAnfrage(const QByteArray& url, const QByteArray& referer, const RequestExtras& extras);

/// All fields that the readers below find.
[[nodiscard]] AnswerHead headOf(const QByteArray& header);

/// What follows the first `name` + ": " (letter case ignored) up to the next CR; empty without the field.
[[nodiscard]] QByteArray holeFeld(const QByteArray& header, QByteArrayView name);
[[nodiscard]] QByteArray contentLanguage(const QByteArray& header);
[[nodiscard]] QByteArray location(const QByteArray& header);
/// Only the first Set-Cookie field.
[[nodiscard]] QByteArray setCookie(const QByteArray& header);
/// Every Set-Cookie field, in the order of the header. One at the end of a longer name counts too.
[[nodiscard]] QByteArrayList setCookies(const QByteArray& header);
/// The number between the first two blanks behind "HTTP/1" (exact letter case), or behind the first when there is no
/// second; 0 without it.
[[nodiscard]] qint32 statusCode(const QByteArray& header);
/// Whether a status sends the client elsewhere: 301, 302 or 307. 303 does not.
[[nodiscard]] bool isRelocation(qint32 status);
/// In bytes; -1 without the field, 0 when its value is not a number.
[[nodiscard]] qint64 contentLength(const QByteArray& header);
/// With its parameters; "?" without the field.
[[nodiscard]] QByteArray contentType(const QByteArray& header);

} // namespace httpHeader
