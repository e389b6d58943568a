// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Settings.h"

#include "base/ErrorReport.h"
#include "base/FileError.h"
#include "base/LineReader.h"
#include "base/allgemein.h"
#include "base/folders.h"
#include "results/FileReplacement.h"
#include "session/Session.h"
#include "session/SettingsTables.h"

#include <QBuffer>
#include <QDir>
#include <QFile>

namespace {

/// In bytes. Longer lines are ignored. The longest setting is a URL.
constexpr qsizetype longestLine = 1024 * 1024;
/// In bytes. The rest of a larger file is not read, so that the program starts in time.
constexpr qint64 largestFile = 16 * 1024 * 1024;

QString settingsFile()
{
    return allgemein::dataFolder() + QLatin1String("tarnwick.ini");
}

QString additionalFile()
{
    return allgemein::dataFolder() + QLatin1String("views.ini");
}

/// Selects the language of a first start.
void selectFirstLanguage(LanguageTable& language, const QString& programFolder)
{
    QFile file(QDir(programFolder).filePath(QStringLiteral("default_lang.ini")));
    language.selectBuiltIn(!openForReading(file) ? allgemein::leadingNumber32(file.readLine(longestLine))
                                                 : LanguageTable::builtInFor(QLocale::system()));
}

/// False for an unknown line; `key` then names it in the message.
bool takeLine(Session& session, const QByteArray& line, QByteArray& key)
{
    const auto pair = allgemein::splitKeyValue(line);
    key = pair ? pair->key : line;
    if (!pair)
        return line.isEmpty();
    return readSetting(session, settingsTables::prescribed(), key, pair->value)
        || session.searchOptions.initOpt(key, pair->value)
        || twkEinstellungen::readRequestPref(session.ownRequestPrefs, key, pair->value);
}

/// Calls `take` with each line and its number, from 1.
template <typename Take> void readLines(QFile& file, Take take)
{
    qint64 number = 0;
    LineReader lines(file, longestLine);
    while (const auto line = lines.position() < largestFile ? lines.next() : std::nullopt) {
        number += line->isRest ? 0 : 1;
        if (!line->isPiece)
            take(line->text, number);
    }
}

void readSettings(Session& session, QFile& file, settings::LoadResult& result)
{
    // An editor may have rewritten the file as UTF-8, with its mark.
    const bool isUtf8 = skipUtf8Mark(file);
    readLines(file, [&](QByteArrayView line, qint64 number) {
        QByteArray key;
        const QByteArray bytes = isUtf8 ? allgemein::toSystem(QString::fromUtf8(line)) : line.toByteArray();
        if (!takeLine(session, bytes, key) && result.unknownCount++ == 0) {
            result.firstUnknown = key;
            result.firstUnknownLine = number;
        }
    });
}

settings::LoadResult loadSettingsFile(Session& session)
{
    settings::LoadResult result;
    QFile file(settingsFile());
    if (!file.exists())
        return result;
    if (const auto error = openForReading(file)) {
        result.failure = QDir::toNativeSeparators(file.fileName()) + u'\n' + error->text(session.language);
        return result;
    }
    readSettings(session, file, result);
    if (file.error() != QFile::NoError)
        result.failure = fileFailure(file);
    result.isTooLarge = file.size() > largestFile;
    return result;
}

/// The program works without this file, so nothing that is wrong with it is told.
void loadAdditionalFile(Session& session)
{
    QFile file(additionalFile());
    if (openForReading(file))
        return;
    skipUtf8Mark(file);
    readLines(file, [&session](QByteArrayView line, qint64) {
        if (const auto pair = allgemein::splitKeyValue(line.toByteArray()))
            readSetting(session, settingsTables::additional(), pair->key, pair->value);
    });
}

/// Has `write` fill a file, which then replaces the old one in one step. Returns the file's name and the reason if that
/// fails.
template <typename Write>
std::optional<QString> replaceFile(const QString& fileName, const LanguageTable& language, Write write)
{
    QBuffer lines;
    lines.open(QIODevice::WriteOnly);
    write(lines);
    FileReplacement file(fileName);
    file.write(lines.data());
    const auto error = file.commit();
    return error ? std::optional(QDir::toNativeSeparators(fileName) + u'\n' + error->text(language)) : std::nullopt;
}

} // namespace

settings::LoadResult settings::loadSettings(Session& session, const QString& programFolder)
{
    session.cookies.setCookieFolder(Session::cookieFolder({}));
    selectFirstLanguage(session.language, programFolder);
    LoadResult result = loadSettingsFile(session);
    session.settingsAreUnread = result.isTooLarge || !result.failure.isEmpty();
    loadAdditionalFile(session);
    session.requestPrefs = session.ownRequestPrefs;
    if (session.windows.builtInLanguage)
        session.language.selectBuiltIn(*session.windows.builtInLanguage);
    session.setFollowRelocation(session.downloads.settings().followRelocation);
    return result;
}

std::optional<Messages::Box> settings::report(const LoadResult& result, const LanguageTable& language)
{
    if (!result.failure.isEmpty())
        return errorReport(language, "lang.errWhileLoadingIni", result.failure);
    const QString fileName = QDir::toNativeSeparators(settingsFile());
    if (result.isTooLarge)
        return errorReport(language, "lang.errWhileLoadingIni", fileName + u'\n' + language.text("more.tooLarge"));
    if (result.unknownCount == 0)
        return {};
    constexpr qsizetype longest = 60;
    const QString unknown = allgemein::shownText(result.firstUnknown).left(longest);
    QString text = language.labelled(language.text("lang.invalidAttribut"), unknown) + u'\n' + fileName + u':'
        + QString::number(result.firstUnknownLine);
    if (result.unknownCount > 1)
        text += u'\n' + language.text("more.andMore").arg(result.unknownCount - 1);
    return Messages::Box { Messages::Sign::Warning, language.text("lang.errWhileLoadingIni"), text };
}

std::optional<QString> settings::saveSettings(const Session& session)
{
    (void)replaceFile(additionalFile(), session.language,
        [&session](QIODevice& file) { writeSettings(file, session, settingsTables::additional()); });
    if (session.settingsAreUnread)
        return QDir::toNativeSeparators(settingsFile()) + u'\n' + session.language.text("more.settingsKept");
    return replaceFile(settingsFile(), session.language, [&session](QIODevice& file) {
        session.searchOptions.speicherOpts(file);
        twkEinstellungen::writeRequestPrefs(file, session.ownRequestPrefs);
        writeSettings(file, session, settingsTables::prescribed());
    });
}
