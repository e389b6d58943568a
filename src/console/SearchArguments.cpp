// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/SearchArguments.h"

#include "base/SwitchKeys.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "console/CommandLine.h"
#include "requests/LanguageStock.h"

namespace {

constexpr std::array referenceNames {
    SwitchKey<AnalysisSwitches> { "anchors", &AnalysisSwitches::anchors },
    SwitchKey<AnalysisSwitches> { "links", &AnalysisSwitches::links },
    SwitchKey<AnalysisSwitches> { "frames", &AnalysisSwitches::frames },
    SwitchKey<AnalysisSwitches> { "images", &AnalysisSwitches::images },
    SwitchKey<AnalysisSwitches> { "src", &AnalysisSwitches::allSrc },
    SwitchKey<AnalysisSwitches> { "forms", &AnalysisSwitches::forms },
};

namespace option {
const QString depth = QStringLiteral("depth");
const QString inside = QStringLiteral("inside");
const QString outside = QStringLiteral("outside");
const QString references = QStringLiteral("references");
const QString noRelocation = QStringLiteral("no-relocation");
const QString referer = QStringLiteral("referer");
const QString userAgent = QStringLiteral("user-agent");
const QString language = QStringLiteral("language");
const QString noReferer = QStringLiteral("no-referer");
const QString sendCookies = QStringLiteral("send-cookies");
const QString noAcceptCookies = QStringLiteral("no-accept-cookies");
const QString cookies = QStringLiteral("cookies");
const QString save = QStringLiteral("save");
const QString quiet = QStringLiteral("quiet");
} // namespace option

void describe(CommandParser& parser)
{
    const auto text = [](const char* bytes) {
        return QString::fromLatin1(bytes);
    };
    parser.addValue({ text("d"), option::depth }, text("Read pages only to this depth. Default: no limit."), text("N"));
    parser.addValue(
        { option::inside }, text("Record only references inside this sub-URL. Repeatable."), text("SUBURL"));
    parser.addValue(
        { option::outside }, text("Record only references outside this sub-URL. Repeatable."), text("SUBURL"));
    parser.addValue({ option::references },
        text("Which references are looked for: a comma list out of anchors, links, frames, images, src and forms. "
             "Default: anchors,links,frames,images."),
        text("LIST"));
    parser.addSwitch({ option::noRelocation }, text("Do not follow the statuses 301, 302 and 307."));
    parser.addValue({ option::referer }, text("The referring URL sent for the start page."), text("URL"));
    parser.addValue({ option::userAgent }, text("The User-Agent sent."), text("TEXT"));
    parser.addValue({ option::language }, text("The languages asked for, in order, as in de,en."), text("CODES"));
    parser.addSwitch({ option::noReferer }, text("Send no Referer."));
    parser.addSwitch({ option::sendCookies }, text("Send the stored cookies."));
    parser.addSwitch({ option::noAcceptCookies }, text("Do not store cookies."));
    parser.addValue({ option::cookies }, text("The cookie folder. Default: the user's own."), text("DIR"));
    parser.addValue({ text("o"), option::save }, text("Write a search file at the end."), text("FILE.twk"));
    parser.addSwitch({ text("q"), option::quiet }, text("Show no progress."));
    PrintOptions::addTo(parser);
}

AnalysisSwitches switchesFrom(const QString& list)
{
    AnalysisSwitches switches { false, false, false, false, false, false };
    for (const QString& name : list.split(u',')) {
        bool* const found = findSwitch(switches, referenceNames, name.toLatin1());
        if (!found)
            throw UsageError { QStringLiteral("--references does not know '%1'").arg(name) };
        *found = true;
    }
    return switches;
}

std::vector<SubUrl> subUrlsFrom(const QStringList& texts)
{
    std::vector<SubUrl> entries;
    for (const QString& text : texts)
        entries.push_back(SubUrl::fromText(allgemein::toSystem(text)));
    return entries;
}

QList<QByteArray> languagesFrom(const QString& codes)
{
    QList<QByteArray> chosen;
    for (const QString& code : codes.split(u',')) {
        const QString entry = LanguageStock::entryFor(code.trimmed());
        if (entry.isEmpty())
            throw UsageError { QStringLiteral("--language does not know '%1'").arg(code) };
        chosen += allgemein::toSystem(entry);
    }
    return chosen;
}

SearchOptions optionsFrom(const CommandParser& parser)
{
    if (parser.isSet(option::inside) && parser.isSet(option::outside))
        throw UsageError { QStringLiteral("--inside and --outside exclude each other") };
    SearchOptions options;
    options.startUrl = allgemein::toSystem(parser.argument());
    options.quellUrl = allgemein::toSystem(parser.value(option::referer));
    options.maxDepth = parser.isSet(option::depth);
    if (options.maxDepth)
        options.tiefe = parser.wholeNumber(option::depth);
    if (parser.isSet(option::inside))
        options.followSub = FollowMode::Inside;
    else if (parser.isSet(option::outside))
        options.followSub = FollowMode::Outside;
    options.unterpfade = subUrlsFrom(parser.values(option::inside) + parser.values(option::outside));
    if (parser.isSet(option::references))
        options.analysis = switchesFrom(parser.value(option::references));
    return options;
}

RequestPrefs prefsFrom(const CommandParser& parser)
{
    RequestPrefs prefs;
    prefs.userAgent = parser.isSet(option::userAgent) ? allgemein::toSystem(parser.value(option::userAgent))
                                                      : RequestPrefs::readyUserAgents().constFirst();
    if (parser.isSet(option::language)) {
        prefs.useLanguage = true;
        prefs.sprachAuswahl = languagesFrom(parser.value(option::language));
        prefs.languageHeader = prefs.aktSprachen();
    }
    prefs.useReferrer = !parser.isSet(option::noReferer);
    prefs.useCookies = parser.isSet(option::sendCookies);
    prefs.setCookies = !parser.isSet(option::noAcceptCookies);
    return prefs;
}

} // namespace

std::optional<SearchArguments> SearchArguments::from(const QStringList& arguments, const LanguageTable& texts)
{
    CommandParser parser(QStringLiteral("search"),
        QStringLiteral("Searches a web site from a start URL and prints every URL found."),
        QStringLiteral("search www.example.org --depth 2 --inside www.example.org --save example.twk"),
        QStringLiteral("START_URL"), QStringLiteral("Where the search begins; http:// is put in front if need be."));
    describe(parser);
    if (!parser.parse(arguments))
        return {};
    SearchArguments result;
    result.options = optionsFrom(parser);
    const Confirmation confirmation = result.options.confirm();
    if (confirmation == Confirmation::InvalidStartUrl)
        throw UsageError { texts.text("lang.invalidStartUrl") + QStringLiteral(" '%1'").arg(parser.argument()) };
    result.unlimited = confirmation == Confirmation::Unlimited;
    result.prefs = prefsFrom(parser);
    result.followRelocation = !parser.isSet(option::noRelocation);
    result.cookieFolder = parser.value(option::cookies);
    result.saveTo = parser.value(option::save);
    result.printing = PrintOptions::from(parser);
    result.quiet = parser.isSet(option::quiet);
    return result;
}
