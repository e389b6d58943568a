// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <algorithm>
#include <optional>

class QIODevice;

/// General helpers for 8-bit text: numbers, lines, searching, and conversion to and from shown text.
namespace allgemein {

/// Result of a search that finds nothing.
constexpr qsizetype notFound = -1;

/// Converts text in the system code page for showing. Bytes that the code page lacks become U+FFFD.
[[nodiscard]] QString fromSystem(QByteArrayView bytes);
/// Whether a character is invisible and changes how the text around it looks: control characters, bidirectional
/// controls and other format characters (zero-width ones among them), line and paragraph separators. A server could
/// make "photo\u202Egpj.exe" look like "photoexe.jpg" with them.
[[nodiscard]] bool isHiddenControl(char32_t character);
/// `text` with hidden controls percent-encoded in UTF-8, so that a person sees them. Any text from outside goes through
/// this before it is shown.
[[nodiscard]] QString withVisibleControls(const QString& text);
/// `bytes` as a person is to see them in a list, a message or a tool tip: at most 1000 of them, since drawing the
/// longest texts that servers send would hold up the window, and with visible controls.
[[nodiscard]] QString shownText(QByteArrayView bytes);
/// `bytes` as the text of a field in which a person changes them: all of them, with visible controls.
[[nodiscard]] QString editedText(QByteArrayView bytes);
/// Converts shown or typed text to the system code page. Characters that it lacks become "?".
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

/// The first place of `needle` (not empty) in `text` at or after `from` (0-based), ignoring the case of ASCII letters;
/// `notFound` when there is none.
[[nodiscard]] qsizetype indexOfNoCase(QByteArrayView text, QByteArrayView needle, qsizetype from = 0);

/// A capital ASCII letter as a small one; any other byte unchanged.
constexpr char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
/// Whether `text` begins with `start`, ignoring the case of ASCII letters in `text`; `start` must have no capital ones.
/// Inline, since the analysis of a page calls it for every "<".
[[nodiscard]] inline bool startsWithNoCase(QByteArrayView text, QByteArrayView start)
{
    return text.size() >= start.size()
        && std::equal(start.begin(), start.end(), text.begin(), [](char small, char c) { return lower(c) == small; });
}

/// Replaces each byte for which `isEncoded` is true by "%" and two capital hexadecimal digits.
[[nodiscard]] QByteArray percentEncoded(const QByteArray& bytes, bool (*isEncoded)(char));
/// Percent-encodes TAB, CR, LF and NUL, so that `bytes` stays one field of one line in requests and files.
[[nodiscard]] QByteArray onOneLine(const QByteArray& bytes);
/// Whether `onOneLine` would leave `bytes` unchanged.
[[nodiscard]] bool isOnOneLine(QByteArrayView bytes);

/// The end of every line that is stored.
constexpr QByteArrayView lineEnd = "\r\n";

/// Writes all of `bytes`; false when not all could be written, as on a full disk. A device can write a part of a long
/// text and report no error.
[[nodiscard]] bool writeAll(QIODevice& file, const QByteArray& bytes);

/// A key=value line. The key ends at the first "=".
struct KeyValue {
    QByteArray key;
    QByteArray value;
};
/// Nothing when the line holds no "=".
[[nodiscard]] std::optional<KeyValue> splitKeyValue(const QByteArray& line);
/// Writes "key=value" and the line end; the value goes through `onOneLine`.
void writeKeyValue(QIODevice& file, QByteArrayView key, const QByteArray& value);
/// Writes one such line for each item, all with the same key.
void writeListItems(QIODevice& file, QByteArrayView key, const QList<QByteArray>& items);

} // namespace allgemein
