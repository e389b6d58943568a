// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SettingsTables.h"

#include "base/allgemein.h"
#include "base/folders.h"
#include "session/Session.h"

#include <QDir>

#include <algorithm>
#include <chrono>

namespace {

void readTarget(Session& session, const QByteArray& value)
{
    // A relative folder would depend on where the program was started.
    const QString folder = allgemein::fromSystem(value);
    if (QDir::isAbsolutePath(folder))
        session.downloads.settings().target = allgemein::withTrailingSeparator(folder);
}

QByteArrayList targetValues(const Session& session)
{
    return { allgemein::toSystem(session.downloads.settings().target) };
}

void readLanguage(Session& session, const QByteArray& value)
{
    // With -1 a language file is in use, whose line may stand above this one.
    const qint32 index = allgemein::leadingNumber32(value);
    if (!LanguageTable::isBuiltIn(index))
        return;
    session.windows.langFile.clear();
    session.windows.builtInLanguage = index;
}

QByteArrayList languageValues(const Session& session)
{
    return { QByteArray::number(session.windows.langFile.isEmpty() ? session.language.builtIn() : -1) };
}

void readLanguageFile(Session& session, const QByteArray& value)
{
    session.windows.langFile = allgemein::fromSystem(value);
}

QByteArrayList languageFileValues(const Session& session)
{
    const QString& file = session.windows.langFile;
    return file.isEmpty() ? QByteArrayList() : QByteArrayList { allgemein::toSystem(file) };
}

void readMimeType(Session& session, const QByteArray& value)
{
    MimeTypeList& types = session.filter.mimeListe;
    // Inserted as it will be saved: the list is sorted, and an unescaped type may sort elsewhere.
    if (!value.isEmpty() && !types.isFull())
        types.insert(allgemein::onOneLine(value)).listed = true;
}

QByteArrayList mimeTypeValues(const Session& session)
{
    QByteArrayList types;
    for (const MimeTypeList::Entry& entry : session.filter.mimeListe.entries())
        types += entry.type;
    return types;
}

void readUrlPart(Session& session, const QByteArray& value)
{
    constexpr qsizetype most = 5000;
    if (!value.isEmpty() && session.filter.filterTexte.size() < most)
        session.filter.filterTexte += value;
}

QByteArrayList urlPartValues(const Session& session)
{
    return session.filter.filterTexte;
}

using Row = StoredSetting<Session>;

/// A row for how a list of the filter is used.
template <typename Field> Row mode(QByteArrayView key, Field field)
{
    return { key,
        [field](Session& session, const QByteArray& value) {
            const qint64 mode = allgemein::leadingNumber(value);
            field(session) = mode == 1 || mode == 2 ? static_cast<FilterSwitch>(mode) : FilterSwitch::Off;
        },
        [field](const Session& session) -> QByteArrayList {
            return { QByteArray::number(static_cast<int>(field(session))) };
        } };
}

/// A row for a bound of the filter.
template <typename Field> Row bound(QByteArrayView key, Field field)
{
    return { key,
        [field](Session& session, const QByteArray& value) {
            field(session) = qBound(qint64 { 0 }, allgemein::leadingNumber(value), FilterRange::greatest);
        },
        [field](const Session& session) -> QByteArrayList {
            return { QByteArray::number(field(session)) };
        } };
}

// Each leads from a session to a value in one of its parts.
constexpr auto ofDownloads = [](auto DownloadSettings::*member) {
    return [member](auto& session) -> auto&
    {
        return session.downloads.settings().*member;
    };
};
constexpr auto ofNaming = [](auto NamingRules::*member) {
    return [member](auto& session) -> auto&
    {
        return session.downloads.settings().naming.*member;
    };
};
constexpr auto ofWindows = [](auto WindowSettings::*member) {
    return [member](auto& session) -> auto&
    {
        return session.windows.*member;
    };
};
constexpr auto ofViews = [](auto ViewState::*member) {
    return [member](auto& session) -> auto&
    {
        return session.views.*member;
    };
};
constexpr auto ofFilter = [](auto ResultFilter::*member) {
    return [member](auto& session) -> auto&
    {
        return session.filter.*member;
    };
};
constexpr auto ofSize = [](auto FilterRange::*member) {
    return [member](auto& session) -> auto&
    {
        return session.filter.size.*member;
    };
};
constexpr auto ofDepth = [](auto FilterRange::*member) {
    return [member](auto& session) -> auto&
    {
        return session.filter.depth.*member;
    };
};

/// The upper left corner of a window, as "x y".
template <typename Field> Row place(QByteArrayView key, Field field)
{
    return { key,
        [field](Session& session, const QByteArray& value) {
            const QByteArrayList numbers = value.split(' ');
            if (numbers.size() == 2)
                field(session) = QPoint(allgemein::leadingNumber32(numbers[0]), allgemein::leadingNumber32(numbers[1]));
        },
        [field](const Session& session) -> QByteArrayList {
            const std::optional<QPoint>& point = field(session);
            return point ? QByteArrayList { QByteArray::number(point->x()) + ' ' + QByteArray::number(point->y()) }
                         : QByteArrayList();
        } };
}

/// A path with letters that the code page lacks: the line of this name in `tarnwick.ini` has other letters in their
/// place. If somebody has changed that line since, it counts.
template <typename Field> Row exactPath(QByteArrayView key, Field field)
{
    return { key,
        [field](Session& session, const QByteArray& value) {
            const QString exact = QString::fromUtf8(value);
            if (allgemein::toSystem(exact) == allgemein::toSystem(field(session)))
                field(session) = exact;
        },
        [field](const Session& session) -> QByteArrayList {
            const QString& exact = field(session);
            const bool isExactAnyway = allgemein::fromSystem(allgemein::toSystem(exact)) == exact;
            return isExactAnyway ? QByteArrayList() : QByteArrayList { exact.toUtf8() };
        } };
}

/// The filter's MIME types that are not checked; `tarnwick.ini` has all types.
void readUnlistedType(Session& session, const QByteArray& value)
{
    if (session.filter.mimeListe.contains(value))
        session.filter.mimeListe.insert(value).listed = false;
}

QByteArrayList unlistedTypeValues(const Session& session)
{
    QByteArrayList types;
    for (const MimeTypeList::Entry& entry : session.filter.mimeListe.entries()) {
        if (!entry.listed)
            types += entry.type;
    }
    return types;
}

/// The unit of sizes, in the list and in the filter.
void readSizeUnit(Session& session, const QByteArray& value)
{
    const qint64 unit = allgemein::leadingNumber(value);
    const auto& units = ResultFilter::sizeUnits;
    if (std::find(units.begin(), units.end(), unit) != units.end())
        session.filter.sizeUnit = unit;
}

QByteArrayList sizeUnitValues(const Session& session)
{
    return { QByteArray::number(session.filter.sizeUnit) };
}

/// The built-in language below a language file.
void readLanguageBelow(Session& session, const QByteArray& value)
{
    if (!session.windows.langFile.isEmpty())
        session.windows.builtInLanguage = allgemein::leadingNumber32(value);
}

QByteArrayList languageBelowValues(const Session& session)
{
    return { QByteArray::number(session.language.builtIn()) };
}

void readTimeLimit(Session& session, const QByteArray& value)
{
    session.web.silenceLimit = std::chrono::seconds(qMax(0, allgemein::leadingNumber32(value)));
}

QByteArrayList timeLimitValues(const Session& session)
{
    return { QByteArray::number(qint64 { session.web.silenceLimit.count() }) };
}

/// A row for a limit of a search, in `unit`; 0 stands for the default.
Row limit(QByteArrayView key, qint64 SearchLimits::*member, qint64 unit)
{
    return { key,
        [member, unit](Session& session, const QByteArray& value) {
            SearchLimits limits = session.search.limits();
            if (const qint64 number = allgemein::leadingNumber32(value); number > 0)
                limits.*member = number * unit;
            session.search.setLimits(limits);
        },
        [member, unit](const Session& session) -> QByteArrayList {
            const qint64 value = session.search.limits().*member;
            return { QByteArray::number(value == SearchLimits().*member ? 0 : value / unit) };
        } };
}

} // namespace

const std::vector<StoredSetting<Session>>& settingsTables::prescribed()
{
    static const std::vector<Row> rows {
        Row { "DLTarget", &readTarget, &targetValues },
        Row::onOff("c_DirByUrl", ofNaming(&NamingRules::dirByUrl)),
        Row::onOff("c_RenameForMS", ofNaming(&NamingRules::renameForMs)),
        Row::onOff("c_extByMIME", ofNaming(&NamingRules::extByMime)),
        Row::onOff("c_overwriteExistingFiles", ofDownloads(&DownloadSettings::overwrite)),
        Row::onOff("c_startImm", ofDownloads(&DownloadSettings::startImmediately)),
        Row::onOff("c_usePercent", ofDownloads(&DownloadSettings::usePercent)),
        Row { "lang", &readLanguage, &languageValues },
        Row { "langfile", &readLanguageFile, &languageFileValues },
        Row::onOff("FilterAutoApply", ofWindows(&WindowSettings::filterAutoApply)),
        Row::onOff("filter", ofWindows(&WindowSettings::filter)),
        Row::onOff("tree", ofWindows(&WindowSettings::tree)),
        Row::number("tree_x", ofWindows(&WindowSettings::treeX), 0),
        Row::number("main_width", ofWindows(&WindowSettings::mainWidth), 0),
        Row::number("main_height", ofWindows(&WindowSettings::mainHeight), 0),
        Row::onOff("main_maximized", ofWindows(&WindowSettings::mainMaximized)),
        Row::number("DLM_width", ofWindows(&WindowSettings::dlmWidth), 0),
        Row::number("DLM_height", ofWindows(&WindowSettings::dlmHeight), 0),
        Row::onOff("resolveHttp301", ofDownloads(&DownloadSettings::followRelocation)),
        Row::onOff("AutoOpenDLM", ofWindows(&WindowSettings::autoOpenDLM)),
        Row::onOff("RemoveFinishedDL", ofDownloads(&DownloadSettings::removeFinished)),
        mode("Filter_MIMETypes", ofFilter(&ResultFilter::mimeSwitch)),
        Row { "Filter_MIMEList", &readMimeType, &mimeTypeValues },
        mode("Filter_URL", ofFilter(&ResultFilter::urlSwitch)),
        Row { "Filter_URLList", &readUrlPart, &urlPartValues },
        Row::onOff("Filter_UseSize", ofSize(&FilterRange::used)),
        bound("Filter_minSize", ofSize(&FilterRange::min)),
        bound("Filter_maxSize", ofSize(&FilterRange::max)),
        Row::onOff("Filter_UseDepth", ofDepth(&FilterRange::used)),
        bound("Filter_minDepth", ofDepth(&FilterRange::min)),
        bound("Filter_maxDepth", ofDepth(&FilterRange::max)),
    };
    return rows;
}

const std::vector<StoredSetting<Session>>& settingsTables::additional()
{
    static const std::vector<Row> rows {
        place("main_place", ofViews(&ViewState::mainPlace)),
        Row::text("main_columns", ofViews(&ViewState::columns)),
        place("DLM_place", ofViews(&ViewState::downloadsPlace)),
        Row::text("DLM_columns", ofViews(&ViewState::downloadsColumns)),
        Row { "Filter_MIMEUnlisted", &readUnlistedType, &unlistedTypeValues },
        Row { "Filter_SizeUnit", &readSizeUnit, &sizeUnitValues },
        Row { "lang_below", &readLanguageBelow, &languageBelowValues },
        exactPath("DLTarget", ofDownloads(&DownloadSettings::target)),
        exactPath("langfile", ofWindows(&WindowSettings::langFile)),
        // No control sets these. They are always written, so that they are found in the file.
        Row { "timeLimit", &readTimeLimit, &timeLimitValues },
        limit("mostUrls", &SearchLimits::items, 1),
        limit("mostMebibytes", &SearchLimits::bytes, 1024 * 1024),
    };
    return rows;
}
