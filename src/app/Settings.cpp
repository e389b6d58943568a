// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Settings.h"

#include "app/Session.h"
#include "base/ErrorReport.h"
#include "base/LineReader.h"
#include "base/allgemein.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <array>
#include <variant>

namespace {

/// In bytes. No setting is longer; the longest is a URL.
constexpr qsizetype longestLine = 1024 * 1024;
/// In bytes. What follows is not read: a program must start.
constexpr qint64 largestFile = 16 * 1024 * 1024;

/// A key that is read and written in a way of its own.
struct Special {
    void (*read)(Session& session, const QByteArray& value);
    /// The values to write, each on a line of its own.
    QByteArrayList (*values)(Session& session);
};
// Where in the session a simple value is: a switch, a whole number that is not negative, or how a list of the filter is
// used.
using Switch = bool& (*)(Session& session);
using Number = qint32& (*)(Session& session);
using LargeNumber = qint64& (*)(Session& session);
using Mode = FilterSwitch& (*)(Session& session);

/// A key of the program's own, beside those of the search options and of the request preferences.
struct OwnKey {
    QByteArrayView key;
    std::variant<Special, Switch, Number, LargeNumber, Mode> place;
};

void readTo(Session& session, const QByteArray& value, const Special& special)
{
    special.read(session, value);
}

void readTo(Session& session, const QByteArray& value, Switch of)
{
    of(session) = allgemein::readSwitch(value);
}

void readTo(Session& session, const QByteArray& value, Number of)
{
    of(session) = qMax(0, allgemein::leadingNumber32(value));
}

void readTo(Session& session, const QByteArray& value, LargeNumber of)
{
    of(session) = qMax(0, allgemein::leadingNumber32(value));
}

void readTo(Session& session, const QByteArray& value, Mode of)
{
    const qint64 mode = allgemein::leadingNumber(value);
    of(session) = mode == 1 || mode == 2 ? static_cast<FilterSwitch>(mode) : FilterSwitch::Off;
}

QByteArrayList valuesOf(Session& session, const Special& special)
{
    return special.values(session);
}

QByteArrayList valuesOf(Session& session, Switch of)
{
    return { allgemein::writeSwitch(of(session)) };
}

template <typename Integer> QByteArrayList valuesOf(Session& session, Integer& (*of)(Session& session))
{
    return { QByteArray::number(static_cast<qint64>(of(session))) };
}

void readTarget(Session& session, const QByteArray& value)
{
    // A folder that depends on where the program was started from is none to store files in.
    const QString folder = allgemein::fromSystem(value);
    if (QDir::isAbsolutePath(folder))
        session.downloads.settings().target = allgemein::withTrailingSeparator(folder);
}

void readLanguage(Session& session, const QByteArray& value)
{
    session.windows.langFile.clear();
    session.windows.builtInLanguage = allgemein::leadingNumber32(value);
}

QByteArrayList languageIndex(Session& session)
{
    return { QByteArray::number(session.windows.langFile.isEmpty() ? session.language.builtIn() : -1) };
}

QByteArrayList languageFiles(Session& session)
{
    const QString& file = session.windows.langFile;
    return file.isEmpty() ? QByteArrayList() : QByteArrayList { allgemein::toSystem(file) };
}

void readMimeType(Session& session, const QByteArray& value)
{
    MimeListe& types = session.filter.mimeListe;
    // In the form in which it is saved, which sorts otherwise.
    if (!value.isEmpty() && !types.isFull())
        types.insert(allgemein::onOneLine(value)).listed = true;
}

void readUrlPart(Session& session, const QByteArray& value)
{
    constexpr qsizetype most = 5000;
    if (!value.isEmpty() && session.filter.filterTexte.size() < most)
        session.filter.filterTexte += value;
}

QByteArrayList mimeTypes(Session& session)
{
    QByteArrayList types;
    for (const MimeListe::Entry& entry : session.filter.mimeListe.entries())
        types += entry.type;
    return types;
}

DownloadSettings& downloads(Session& session)
{
    return session.downloads.settings();
}

const Special targetValue { &readTarget, [](Session& session) {
                               return QByteArrayList { allgemein::toSystem(downloads(session).target) };
                           } };
const Special languageValue { &readLanguage, &languageIndex };
const Special languageFileValue { [](Session& session, const QByteArray& value) {
                                     session.windows.langFile = allgemein::fromSystem(value);
                                 },
    &languageFiles };
const Special mimeListValue { &readMimeType, &mimeTypes };
const Special urlListValue { &readUrlPart, [](Session& session) -> QByteArrayList {
                                return session.filter.filterTexte;
                            } };

/// In the order in which they are written.
const std::array ownKeys {
    OwnKey { "DLTarget", targetValue },
    OwnKey { "c_DirByUrl", Switch([](Session& s) -> bool& { return downloads(s).naming.dirByUrl; }) },
    OwnKey { "c_RenameForMS", Switch([](Session& s) -> bool& { return downloads(s).naming.renameForMS; }) },
    OwnKey { "c_extByMIME", Switch([](Session& s) -> bool& { return downloads(s).naming.extByMIME; }) },
    OwnKey { "c_overwriteExistingFiles", Switch([](Session& s) -> bool& { return downloads(s).overwrite; }) },
    OwnKey { "c_startImm", Switch([](Session& s) -> bool& { return downloads(s).startImmediately; }) },
    OwnKey { "c_usePercent", Switch([](Session& s) -> bool& { return downloads(s).usePercent; }) },
    OwnKey { "lang", languageValue },
    OwnKey { "langfile", languageFileValue },
    OwnKey { "FilterAutoApply", Switch([](Session& s) -> bool& { return s.windows.filterAutoApply; }) },
    OwnKey { "filter", Switch([](Session& s) -> bool& { return s.windows.filter; }) },
    OwnKey { "tree", Switch([](Session& s) -> bool& { return s.windows.tree; }) },
    OwnKey { "tree_x", Number([](Session& s) -> qint32& { return s.windows.treeX; }) },
    OwnKey { "main_width", Number([](Session& s) -> qint32& { return s.windows.mainWidth; }) },
    OwnKey { "main_height", Number([](Session& s) -> qint32& { return s.windows.mainHeight; }) },
    OwnKey { "main_maximized", Switch([](Session& s) -> bool& { return s.windows.mainMaximized; }) },
    OwnKey { "DLM_width", Number([](Session& s) -> qint32& { return s.windows.dlmWidth; }) },
    OwnKey { "DLM_height", Number([](Session& s) -> qint32& { return s.windows.dlmHeight; }) },
    OwnKey { "resolveHttp301", Switch([](Session& s) -> bool& { return downloads(s).followRelocation; }) },
    OwnKey { "AutoOpenDLM", Switch([](Session& s) -> bool& { return s.windows.autoOpenDLM; }) },
    OwnKey { "RemoveFinishedDL", Switch([](Session& s) -> bool& { return downloads(s).removeFinished; }) },
    OwnKey { "Filter_MIMETypes", Mode([](Session& s) -> FilterSwitch& { return s.filter.mimeSwitch; }) },
    OwnKey { "Filter_MIMEList", mimeListValue },
    OwnKey { "Filter_URL", Mode([](Session& s) -> FilterSwitch& { return s.filter.urlSwitch; }) },
    OwnKey { "Filter_URLList", urlListValue },
    OwnKey { "Filter_UseSize", Switch([](Session& s) -> bool& { return s.filter.size.used; }) },
    OwnKey { "Filter_minSize", LargeNumber([](Session& s) -> qint64& { return s.filter.size.min; }) },
    OwnKey { "Filter_maxSize", LargeNumber([](Session& s) -> qint64& { return s.filter.size.max; }) },
    OwnKey { "Filter_UseDepth", Switch([](Session& s) -> bool& { return s.filter.depth.used; }) },
    OwnKey { "Filter_minDepth", LargeNumber([](Session& s) -> qint64& { return s.filter.depth.min; }) },
    OwnKey { "Filter_maxDepth", LargeNumber([](Session& s) -> qint64& { return s.filter.depth.max; }) },
};

QString settingsFile()
{
    return allgemein::dataFolder() + QLatin1String("tarnwick.ini");
}

/// Chooses the language in which the program speaks as long as the user has not chosen one.
void selectFirstLanguage(LanguageTable& language, const QString& programFolder)
{
    QFile file(QDir(programFolder).filePath(QStringLiteral("default_lang.ini")));
    language.selectBuiltIn(file.open(QIODevice::ReadOnly) ? allgemein::leadingNumber32(file.readLine(longestLine))
                                                          : LanguageTable::builtInFor(QLocale::system()));
}

bool readOwnKey(Session& session, const QByteArray& key, const QByteArray& value)
{
    for (const OwnKey& own : ownKeys) {
        if (own.key == key) {
            std::visit([&](const auto& place) { readTo(session, value, place); }, own.place);
            return true;
        }
    }
    return false;
}

/// False for a line that nobody knows; `key` is then what to call it by.
bool takeLine(Session& session, const QByteArray& line, QByteArray& key)
{
    const auto pair = allgemein::splitKeyValue(line);
    key = pair ? pair->key : line;
    if (!pair)
        return line.isEmpty();
    return readOwnKey(session, key, pair->value) || session.searchOptions.initOpt(key, pair->value)
        || twkEinstellungen::readRequestPref(session.requestPrefs, key, pair->value);
}

void readLines(Session& session, QFile& file, Settings::LoadResult& result)
{
    QByteArray key;
    qint64 number = 0;
    LineReader lines(file, longestLine);
    while (const auto line = lines.position() < largestFile ? lines.next() : std::nullopt) {
        number += line->isRest ? 0 : 1;
        const bool isUnknown = !line->isPiece && !takeLine(session, line->text.toByteArray(), key);
        if (isUnknown && result.unknownCount++ == 0) {
            result.firstUnknown = key;
            result.firstUnknownLine = number;
        }
    }
}

Settings::LoadResult readFile(Session& session)
{
    Settings::LoadResult result;
    QFile file(settingsFile());
    if (!file.exists())
        return result;
    // A pipe would wait for a writer.
    if (!QFileInfo(file).isFile()) {
        result.failure = QDir::toNativeSeparators(file.fileName()) + QLatin1String("\nnot an ordinary file");
        return result;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        result.failure = fileFailure(file);
        return result;
    }
    readLines(session, file, result);
    if (file.error() != QFile::NoError)
        result.failure = fileFailure(file);
    result.isTooLarge = file.size() > largestFile;
    return result;
}

QByteArray fileContent(Session& session)
{
    QBuffer lines;
    lines.open(QIODevice::WriteOnly);
    session.searchOptions.speicherOpts(lines);
    twkEinstellungen::writeRequestPrefs(lines, session.requestPrefs);
    for (const OwnKey& own : ownKeys)
        twkEinstellungen::writeListItems(
            lines, own.key, std::visit([&](const auto& place) { return valuesOf(session, place); }, own.place));
    return lines.data();
}

/// What is checked of the filter's MIME types, and what is under a language file, the settings file cannot say.
void applyViewState(Session& session)
{
    session.views = ViewState::load();
    for (const QByteArray& type : session.views.unlistedTypes) {
        if (session.filter.mimeListe.contains(type))
            session.filter.mimeListe.insert(type).listed = false;
    }
    if (!session.windows.langFile.isEmpty() && session.views.builtInLanguage)
        session.windows.builtInLanguage = session.views.builtInLanguage;
}

void rememberViewState(Session& session)
{
    session.views.unlistedTypes.clear();
    for (const MimeListe::Entry& entry : session.filter.mimeListe.entries()) {
        if (!entry.listed)
            session.views.unlistedTypes += entry.type;
    }
    session.views.builtInLanguage = session.language.builtIn();
    session.views.save();
}

} // namespace

Settings::LoadResult Settings::loadSettings(Session& session, const QString& programFolder)
{
    selectFirstLanguage(session.language, programFolder);
    LoadResult result = readFile(session);
    session.settingsAreUnread = result.isTooLarge || !result.failure.isEmpty();
    applyViewState(session);
    if (session.windows.builtInLanguage)
        session.language.selectBuiltIn(*session.windows.builtInLanguage);
    session.setFollowRelocation(session.downloads.settings().followRelocation);
    return result;
}

std::optional<Messages::Box> Settings::report(const LoadResult& result, const LanguageTable& language)
{
    if (!result.failure.isEmpty())
        return errorReport(language, "lang.errWhileLoadingIni", result.failure);
    const QString fileName = QDir::toNativeSeparators(settingsFile());
    if (result.isTooLarge)
        return errorReport(language, "lang.errWhileLoadingIni", fileName + u'\n' + language.text("more.tooLarge"));
    if (result.unknownCount == 0)
        return {};
    constexpr qsizetype longest = 60;
    QString text = language.text("lang.invalidAttribut") + QLatin1String(": ")
        + allgemein::shownText(result.firstUnknown).left(longest) + u'\n' + fileName + u':'
        + QString::number(result.firstUnknownLine);
    if (result.unknownCount > 1)
        text += u'\n' + language.text("more.andMore").arg(result.unknownCount - 1);
    return Messages::Box { Messages::Sign::Warning, language.text("lang.errWhileLoadingIni"), text };
}

std::optional<QString> Settings::saveSettings(Session& session)
{
    rememberViewState(session);
    QSaveFile file(settingsFile());
    if (session.settingsAreUnread)
        return QDir::toNativeSeparators(file.fileName()) + u'\n' + session.language.text("more.settingsKept");
    if (!file.open(QIODevice::WriteOnly))
        return fileFailure(file);
    if (allgemein::writeAll(file, fileContent(session)))
        return file.commit() ? std::nullopt : std::optional(fileFailure(file));
    file.cancelWriting();
    return fileFailure(file);
}
