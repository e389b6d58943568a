// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <algorithm>
#include <optional>

class QIODevice;

/// General helpers for 8-bit text: numbers, lines, searching, and the way to and from text for people.
namespace allgemein {

/// Result of a search that finds nothing.
constexpr qsizetype notFound = -1;

/// 8-bit text in the system code page, made readable. Bytes that the code page lacks become U+FFFD.
[[nodiscard]] QString fromSystem(QByteArrayView bytes);
/// As `fromSystem`, cut to what a person would read in a cell of a list. What servers send may be long enough to hold
/// up the drawing.
[[nodiscard]] QString shownText(QByteArrayView bytes);
/// Text for people in the bytes of the system code page. Characters that it lacks become "?".
[[nodiscard]] QByteArray toSystem(QStringView text);

/// The number that `text` begins with: leading blanks and TABs, a sign, digits, a fraction, of which only a digit is
/// required. Halves are rounded to even. 0 when there is no number or it exceeds 64 bits.
[[nodiscard]] qint64 leadingNumber(QByteArrayView text);
/// As `leadingNumber`; 0 as well when the number exceeds 32 bits.
[[nodiscard]] qint32 leadingNumber32(QByteArrayView text);
/// How files hold a switch: on when the leading number is greater than 0.
[[nodiscard]] bool readSwitch(QByteArrayView text);
/// "1" or "0".
[[nodiscard]] QByteArray writeSwitch(bool on);

/// Where `needle` (not empty) first stands in `text` at or after `from` (0-based), ASCII letters alike in both cases;
/// `notFound` when nowhere.
[[nodiscard]] qsizetype indexOfNoCase(QByteArrayView text, QByteArrayView needle, qsizetype from = 0);

/// An ASCII letter in small; any other byte as it is.
constexpr char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
/// Whether `text` begins with `start`, which has no capital ASCII letters; those of `text` count as small ones. Inline,
/// since the analysis of a page asks it for every "<".
[[nodiscard]] inline bool startsWithNoCase(QByteArrayView text, QByteArrayView start)
{
    return text.size() >= start.size()
        && std::equal(start.begin(), start.end(), text.begin(), [](char small, char c) { return lower(c) == small; });
}

/// `bytes` with those for which `isEncoded` holds written as "%" and two capital hexadecimal digits.
[[nodiscard]] QByteArray percentEncoded(const QByteArray& bytes, bool (*isEncoded)(char));
/// `bytes` with TAB, CR, LF and NUL percent-encoded, so that they stay one field of one line in requests and files.
[[nodiscard]] QByteArray onOneLine(const QByteArray& bytes);
/// Whether `onOneLine` would leave `bytes` alone.
[[nodiscard]] bool isOnOneLine(QByteArrayView bytes);

/// How every persisted line ends.
constexpr QByteArrayView lineEnd = "\r\n";

/// Writes all of `bytes`; false when not all could be written, as on a full disk. (A device may take a part of a long
/// text and report no error.)
[[nodiscard]] bool writeAll(QIODevice& file, const QByteArray& bytes);

/// A key=value line. The key is what stands before the first "=".
struct KeyValue {
    QByteArray key;
    QByteArray value;
};
/// Nothing when the line holds no "=".
[[nodiscard]] std::optional<KeyValue> splitKeyValue(const QByteArray& line);
/// Writes "key=value" and the line end; the value goes through `onOneLine`.
void writeKeyValue(QIODevice& file, QByteArrayView key, const QByteArray& value);

/// The folder with the system's separator at its end.
[[nodiscard]] QString withTrailingSeparator(const QString& folder);
/// Creates a folder and the folders above it. That it exists, or cannot be made, is ignored.
void createFolder(const QString& folder);
/// Whether `name` can name a file inside a folder and nowhere else: not empty, no separator, no NUL, neither "."
/// nor "..", no name that the system reserves for a device.
[[nodiscard]] bool isPlainFileName(QByteArrayView name);
/// The program's own folder, with trailing separator: the one that the environment variable TARNWICK_DATA names, or
/// else "Tarnwick", which is beside the program if there is a file "portable.txt", and in the user's application data
/// otherwise.
[[nodiscard]] QString dataFolder();

} // namespace allgemein
