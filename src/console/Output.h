// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

class CookieStore;
class LanguageTable;
class QIODevice;

namespace searchFile {
struct LoadResult;
}

/// Writes one line to standard error: the program's name and the text, without characters that a terminal would act on.
void complain(const QString& text);
/// Writes one line to standard error that says why a URL was not fetched as it should: the URL, ": ", and the reason.
void reportFailure(const QByteArray& url, const QString& reason);
/// Complains that cookies cannot be stored.
void complainOfCookies(const CookieStore& cookies, const LanguageTable& language);
/// Complains of each line of a search file that was passed over, with the file's name and the line's number.
void complainOfSkippedLines(
    const QString& fileName, const searchFile::LoadResult& result, const LanguageTable& language);

/// Lets `write` write bytes to standard output. Returns false, after a complaint, when not all could be written.
[[nodiscard]] bool printToStandardOutput(const std::function<void(QIODevice&)>& write);
