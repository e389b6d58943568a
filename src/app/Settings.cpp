// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Settings.h"

#include "app/Session.h"
#include "base/ErrorReport.h"
#include "base/allgemein.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace {

/// In bytes. No setting is longer; the longest is a URL.
constexpr qint64 longestLine = 1024 * 1024;
/// In bytes. What follows is not read: a program must start.
constexpr qint64 largestFile = 16 * 1024 * 1024;

/// A key of the program's own, beside those of the search options and of the request preferences.
struct OwnKey {
    QByteArrayView key;
    void (*read)(Session& session, const QByteArray& value);
    /// The values to write, each on a line of its own.
    QByteArrayList (*values)(Session& session);
};

/// A switch, which `of` finds in the session.
template <auto of> constexpr OwnKey onOff(QByteArrayView key)
{
    return { key, [](Session& session, const QByteArray& value) { of(session) = allgemein::readSwitch(value); },
        [](Session& session) -> QByteArrayList {
            return { allgemein::writeSwitch(of(session)) };
        } };
}

/// A whole number that is not negative, which `of` finds in the session.
template <auto of> constexpr OwnKey number(QByteArrayView key)
{
    return { key,
        [](Session& session, const QByteArray& value) { of(session) = qMax(0, allgemein::leadingNumber32(value)); },
        [](Session& session) -> QByteArrayList {
            return { QByteArray::number(of(session)) };
        } };
}

/// How a list of the filter is used, which `of` finds in the session.
template <auto of> constexpr OwnKey filterMode(QByteArrayView key)
{
    return { key,
        [](Session& session, const QByteArray& value) {
            const qint64 mode = allgemein::leadingNumber(value);
            of(session) = mode == 1 || mode == 2 ? static_cast<FilterSwitch>(mode) : FilterSwitch::Off;
        },
        [](Session& session) -> QByteArrayList {
            return { QByteArray::number(static_cast<int>(of(session))) };
        } };
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
    session.language.selectBuiltIn(allgemein::leadingNumber32(value));
}

QByteArrayList languageValue(Session& session)
{
    return { QByteArray::number(session.windows.langFile.isEmpty() ? session.language.builtIn() : -1) };
}

QByteArrayList languageFileValue(Session& session)
{
    const QString& file = session.windows.langFile;
    return file.isEmpty() ? QByteArrayList() : QByteArrayList { allgemein::toSystem(file) };
}

void readMimeType(Session& session, const QByteArray& value)
{
    MimeListe& types = session.filter.mimeListe;
    if (!value.isEmpty() && !types.isFull())
        types.insert(value).listed = true;
}

QByteArrayList mimeTypes(Session& session)
{
    QByteArrayList types;
    for (const MimeListe::Entry& entry : session.filter.mimeListe.entries())
        types += entry.type;
    return types;
}

/// In the order in which they are written.
constexpr std::array ownKeys { OwnKey { "DLTarget", &readTarget,
                                   [](Session& session) -> QByteArrayList {
                                       return { allgemein::toSystem(session.downloads.settings().target) };
                                   } },
    onOff < [](Session& s) -> auto& { return s.downloads.settings().naming.dirByUrl;
} // namespace
> ("c_DirByUrl"), onOff < [](Session& s) -> auto&
{
    return s.downloads.settings().naming.renameForMS;
}
> ("c_RenameForMS"), onOff < [](Session& s) -> auto&
{
    return s.downloads.settings().naming.extByMIME;
}
> ("c_extByMIME"), onOff < [](Session& s) -> auto&
{
    return s.downloads.settings().overwrite;
}
> ("c_overwriteExistingFiles"), onOff < [](Session& s) -> auto&
{
    return s.downloads.settings().startImmediately;
}
> ("c_startImm"), onOff < [](Session& s) -> auto&
{
    return s.downloads.settings().usePercent;
}
> ("c_usePercent"), OwnKey { "lang", &readLanguage, &languageValue },
    OwnKey { "langfile",
        [](Session& session, const QByteArray& value) { session.windows.langFile = allgemein::fromSystem(value); },
        &languageFileValue },
    onOff < [](Session& s) -> auto&
{
    return s.windows.filterAutoApply;
}
> ("FilterAutoApply"), onOff < [](Session& s) -> auto&
{
    return s.windows.filter;
}
> ("filter"), onOff < [](Session& s) -> auto&
{
    return s.windows.tree;
}
> ("tree"), number < [](Session& s) -> auto&
{
    return s.windows.treeX;
}
> ("tree_x"), number < [](Session& s) -> auto&
{
    return s.windows.mainWidth;
}
> ("main_width"), number < [](Session& s) -> auto&
{
    return s.windows.mainHeight;
}
> ("main_height"), onOff < [](Session& s) -> auto&
{
    return s.windows.mainMaximized;
}
> ("main_maximized"), number < [](Session& s) -> auto&
{
    return s.windows.dlmWidth;
}
> ("DLM_width"), number < [](Session& s) -> auto&
{
    return s.windows.dlmHeight;
}
> ("DLM_height"), onOff < [](Session& s) -> auto&
{
    return s.downloads.settings().followRelocation;
}
> ("resolveHttp301"), onOff < [](Session& s) -> auto&
{
    return s.windows.autoOpenDLM;
}
> ("AutoOpenDLM"), onOff < [](Session& s) -> auto&
{
    return s.downloads.settings().removeFinished;
}
> ("RemoveFinishedDL"), filterMode < [](Session& s) -> auto&
{
    return s.filter.mimeSwitch;
}
> ("Filter_MIMETypes"), OwnKey { "Filter_MIMEList", &readMimeType, &mimeTypes }, filterMode < [](Session& s) -> auto&
{
    return s.filter.urlSwitch;
}
> ("Filter_URL"),
    OwnKey { "Filter_URLList", [](Session& session, const QByteArray& value) { session.filter.filterTexte += value; },
        [](Session& session) -> QByteArrayList {
            return session.filter.filterTexte;
        } },
    onOff < [](Session& s) -> auto&
{
    return s.filter.size.used;
}
> ("Filter_UseSize"), number < [](Session& s) -> auto&
{
    return s.filter.size.min;
}
> ("Filter_minSize"), number < [](Session& s) -> auto&
{
    return s.filter.size.max;
}
> ("Filter_maxSize"), onOff < [](Session& s) -> auto&
{
    return s.filter.depth.used;
}
> ("Filter_UseDepth"), number < [](Session& s) -> auto&
{
    return s.filter.depth.min;
}
> ("Filter_minDepth"), number < [](Session& s) -> auto&
{
    return s.filter.depth.max;
}
> ("Filter_maxDepth"),
}
;

QString settingsFile()
{
    return allgemein::dataFolder() + QLatin1String("tarnwick.ini");
}

QString failureOf(const QFileDevice& file)
{
    return QDir::toNativeSeparators(file.fileName()) + u'\n' + file.errorString();
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
            own.read(session, value);
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

Settings::LoadResult readFile(Session& session)
{
    Settings::LoadResult result;
    QFile file(settingsFile());
    if (!file.exists())
        return result;
    if (!file.open(QIODevice::ReadOnly)) {
        result.failure = failureOf(file);
        return result;
    }
    QByteArray key;
    while (const auto line = file.pos() < largestFile ? allgemein::readLineUpTo(file, longestLine) : std::nullopt) {
        if (!takeLine(session, *line, key) && result.unknownCount++ == 0)
            result.firstUnknown = key;
    }
    if (file.error() != QFile::NoError)
        result.failure = failureOf(file);
    result.isTooLarge = file.pos() >= largestFile;
    return result;
}

QByteArray fileContent(Session& session)
{
    QBuffer lines;
    lines.open(QIODevice::WriteOnly);
    session.searchOptions.speicherOpts(lines);
    twkEinstellungen::writeRequestPrefs(lines, session.requestPrefs);
    for (const OwnKey& own : ownKeys)
        twkEinstellungen::writeListItems(lines, own.key, own.values(session));
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
    if (!session.windows.langFile.isEmpty())
        session.language.selectBuiltIn(session.views.builtInLanguage);
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
    applyViewState(session);
    session.setFollowRelocation(session.downloads.settings().followRelocation);
    return result;
}

std::optional<Messages::Box> Settings::report(const LoadResult& result, const LanguageTable& language)
{
    if (!result.failure.isEmpty())
        return errorReport(language, "lang.errWhileLoadingIni", result.failure);
    if (result.isTooLarge)
        return errorReport(language, "lang.errWhileLoadingIni", language.text("more.tooLarge"));
    if (result.unknownCount == 0)
        return {};
    constexpr qsizetype longest = 60;
    QString text = language.text("lang.invalidAttribut") + QLatin1String(": ")
        + allgemein::shownText(result.firstUnknown).left(longest);
    if (result.unknownCount > 1)
        text += u'\n' + language.text("more.andMore").arg(result.unknownCount - 1);
    return Messages::Box { Messages::Sign::Warning, language.text("lang.errWhileLoadingIni"), text };
}

std::optional<QString> Settings::saveSettings(Session& session)
{
    rememberViewState(session);
    QSaveFile file(settingsFile());
    if (!file.open(QIODevice::WriteOnly))
        return failureOf(file);
    if (allgemein::writeAll(file, fileContent(session)))
        return file.commit() ? std::nullopt : std::optional(failureOf(file));
    file.cancelWriting();
    return failureOf(file);
}
