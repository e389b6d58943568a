// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "base/folders.h"
#include "base/lang.h"
#include "console/Commands.h"
#include "console/ConsoleSearch.h"
#include "console/ItemOptions.h"
#include "console/SharedOptions.h"
#include "http/url.h"
#include "requests/LanguageStock.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace {

struct ReferenceName {
    QLatin1String name;
    bool AnalysisSwitches::*on;
};

constexpr std::array referenceNames {
    ReferenceName { QLatin1String("anchors"), &AnalysisSwitches::anchors },
    ReferenceName { QLatin1String("links"), &AnalysisSwitches::links },
    ReferenceName { QLatin1String("frames"), &AnalysisSwitches::frames },
    ReferenceName { QLatin1String("images"), &AnalysisSwitches::images },
    ReferenceName { QLatin1String("src"), &AnalysisSwitches::allSrc },
    ReferenceName { QLatin1String("forms"), &AnalysisSwitches::forms },
};

constexpr Option depth {
    .name = "depth", .letter = 'd', .value = "N", .help = "Read pages only to this depth. Default: no limit."
};
constexpr Option inside {
    .name = "inside", .value = "SUBURL", .help = "Record only references inside this sub-URL. Repeatable."
};
constexpr Option outside {
    .name = "outside", .value = "SUBURL", .help = "Record only references outside this sub-URL. Repeatable."
};
constexpr Option references { .name = "references",
    .value = "LIST",
    .help = "Which references are looked for: a comma list out of anchors, links, frames, images, src and forms. "
            "Default: anchors,links,frames,images." };
constexpr Option noRelocation { .name = "no-relocation", .help = "Do not follow the statuses 301, 302 and 307." };
constexpr Option referer { .name = "referer", .value = "URL", .help = "The referring URL sent for the start page." };
constexpr Option userAgent { .name = "user-agent", .value = "TEXT", .help = "The User-Agent sent." };
constexpr Option language {
    .name = "language", .value = "CODES", .help = "The languages asked for, in order, as in de,en."
};
constexpr Option noReferer { .name = "no-referer", .help = "Send no Referer." };
constexpr Option sendCookies { .name = "send-cookies", .help = "Send the stored cookies." };
constexpr Option noAcceptCookies { .name = "no-accept-cookies", .help = "Do not store cookies." };
constexpr Option save { .name = "save", .letter = 'o', .value = "FILE.twk", .help = "Write a search file at the end." };
constexpr Option maxUrls {
    .name = "max-urls", .value = "N", .help = "Stop, with status 2, when N URLs are known. Default: 10 million."
};

constexpr Option verbose { .name = "verbose", .help = "Say on standard error why a URL got no answer." };

constexpr std::array options { &depth, &inside, &outside, &references, &noRelocation, &referer, &userAgent, &language,
    &noReferer, &sendCookies, &noAcceptCookies, &sharedOptions::cookies, &save, &maxUrls, &sharedOptions::timeLimit,
    &sharedOptions::quiet, &verbose };

AnalysisSwitches switchesFrom(const QString& list)
{
    AnalysisSwitches switches { false, false, false, false, false, false };
    for (const QString& name : list.split(u',')) {
        const auto* const found = std::find_if(referenceNames.begin(), referenceNames.end(),
            [&name](const ReferenceName& entry) { return entry.name == name; });
        if (found == referenceNames.end())
            throw UsageError { QStringLiteral("--references does not know '%1'").arg(name) };
        switches.*(found->on) = true;
    }
    return switches;
}

std::vector<SubUrl> subUrlsFrom(const QStringList& texts)
{
    std::vector<SubUrl> entries;
    for (const QString& text : texts)
        entries.push_back(SubUrl::fromText(url::fromTyped(allgemein::toSystem(text))));
    return entries;
}

QList<QByteArray> languagesFrom(const QString& codes)
{
    QList<QByteArray> chosen;
    for (const QString& code : codes.split(u',')) {
        const QString entry = languageStock::entryFor(code.trimmed());
        if (entry.isEmpty())
            throw UsageError { QStringLiteral("--language does not know '%1'").arg(code) };
        chosen += allgemein::toSystem(entry);
    }
    return chosen;
}

SearchOptions optionsFrom(const CommandLine& line)
{
    if (line.isSet(inside) && line.isSet(outside))
        throw UsageError { QStringLiteral("--inside and --outside exclude each other") };
    SearchOptions result;
    result.startUrl = url::fromTyped(allgemein::toSystem(line.argument()));
    result.quellUrl = allgemein::toSystem(line.value(referer));
    result.maxDepth = line.isSet(depth);
    if (result.maxDepth)
        result.tiefe = line.wholeNumber(depth);
    if (line.isSet(inside))
        result.followSub = FollowMode::Inside;
    else if (line.isSet(outside))
        result.followSub = FollowMode::Outside;
    result.unterpfade = subUrlsFrom(line.values(inside) + line.values(outside));
    if (line.isSet(references))
        result.analysis = switchesFrom(line.value(references));
    return result;
}

RequestPrefs prefsFrom(const CommandLine& line)
{
    RequestPrefs prefs;
    prefs.userAgent = line.isSet(userAgent) ? allgemein::toSystem(line.value(userAgent))
                                            : RequestPrefs::readyUserAgents().constFirst();
    if (line.isSet(language)) {
        prefs.useLanguage = true;
        prefs.sprachAuswahl = languagesFrom(line.value(language));
        prefs.languageHeader = prefs.aktSprachen();
    }
    prefs.useReferrer = !line.isSet(noReferer);
    prefs.useCookies = line.isSet(sendCookies);
    prefs.setCookies = !line.isSet(noAcceptCookies);
    return prefs;
}

/// The file to save to; empty when none was named. Checked before the search, which may take days.
QString saveTargetFrom(const CommandLine& line)
{
    if (!line.isSet(save))
        return {};
    const QString path = line.value(save);
    if (path.isEmpty())
        throw UsageError { QStringLiteral("--save needs a file name") };
    if (!allgemein::canBeReplaced(path))
        throw UsageError { QStringLiteral("--save: '%1' is not an ordinary file").arg(path) };
    const QFileInfo folder(QFileInfo(path).absolutePath());
    if (!folder.isDir() || !folder.isWritable())
        throw UsageError { QStringLiteral("--save: cannot write to the folder '%1'").arg(folder.filePath()) };
    return path;
}

/// The sub-URLs of which more or less is read than was typed, with what is read. A "http://" in front and a "/" behind
/// do not count.
QList<QPair<QString, QByteArray>> completed(const QStringList& typed, const std::vector<SubUrl>& entries)
{
    QList<QPair<QString, QByteArray>> result;
    for (qsizetype index = 0; index < typed.size(); ++index) {
        const QByteArray& entry = entries[static_cast<size_t>(index)].text;
        const QByteArray meant = url::withProtocol(url::fromTyped(allgemein::toSystem(typed[index])));
        if (meant != entry && QByteArray(meant + '/') != entry)
            result += { typed[index], entry };
    }
    return result;
}

SearchLimits limitsFrom(const CommandLine& line)
{
    SearchLimits limits;
    if (line.isSet(maxUrls))
        limits.items = line.wholeNumber(maxUrls);
    if (limits.items < 1)
        throw UsageError { QStringLiteral("--max-urls needs a number above 0") };
    return limits;
}

int runSearch(const CommandLine& line)
{
    SearchArguments arguments;
    arguments.options = optionsFrom(line);
    arguments.completedSubUrls = completed(line.values(inside) + line.values(outside), arguments.options.unterpfade);
    arguments.limits = limitsFrom(line);
    if (line.isSet(sharedOptions::timeLimit))
        arguments.timeLimit = std::chrono::seconds(line.wholeNumber(sharedOptions::timeLimit));
    const Confirmation confirmation = arguments.options.confirm();
    if (confirmation == Confirmation::InvalidStartUrl)
        throw UsageError { LanguageTable().text("lang.invalidStartUrl")
            + QStringLiteral(" '%1'").arg(line.argument()) };
    arguments.unlimited = confirmation == Confirmation::Unlimited;
    arguments.prefs = prefsFrom(line);
    arguments.followRelocation = !line.isSet(noRelocation);
    arguments.cookieFolder = line.value(sharedOptions::cookies);
    arguments.saveTo = saveTargetFrom(line);
    arguments.verbose = line.isSet(verbose);
    arguments.format = itemOptions::formatFrom(line);
    arguments.filter = itemOptions::filterFrom(line);
    arguments.quiet = line.isSet(sharedOptions::quiet);
    return ConsoleSearch(arguments).run();
}

} // namespace

const Command commands::search {
    .name = "search",
    .arguments = "START_URL",
    .argumentsHelp = "Where the search begins; http:// is put in front if need be.",
    .summary = "Searches a site and prints every URL found.",
    .example = "search www.example.org --depth 2 --inside www.example.org --save example.twk",
    .options = { options, itemOptions::format, itemOptions::filter },
    .run = runSearch,
};
