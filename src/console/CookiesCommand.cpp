// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/CookiesCommand.h"

#include "app/Session.h"
#include "base/allgemein.h"
#include "console/CommandLine.h"
#include "crawl/url.h"
#include "requests/CookieImport.h"

#include <QDir>
#include <QIODevice>

#include <limits>

namespace {

const QString cookiesOption = QStringLiteral("cookies");

void addFolderOption(CommandParser& parser)
{
    parser.addValue(
        { cookiesOption }, QStringLiteral("The cookie folder. Default: the user's own."), QStringLiteral("DIR"));
}

/// The store of the command's folder. Where there is no such folder, there are no cookies; only storing some makes it.
CookieStore storeFor(const CommandParser& parser, bool stores)
{
    CookieStore store;
    const QString folder = Session::cookieFolder(parser.value(cookiesOption));
    if (stores || QDir(folder).exists())
        store.setCookieFolder(folder);
    return store;
}

int print(const QByteArray& line)
{
    return printToStandardOutput([&](QIODevice& out) { out.write(line); }) ? Done : PartlyFailed;
}

int show(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("cookies show"),
        QStringLiteral("Prints the Cookie line that a request for a URL would carry."),
        QStringLiteral("cookies show http://www.example.org/shop/"), QStringLiteral("URL"),
        QStringLiteral("The URL of the request."));
    addFolderOption(parser);
    if (!parser.parse(arguments))
        return Done;
    const QByteArray url = url::withProtocol(allgemein::toSystem(parser.argument()));
    if (!url::isValidUrl(url)) {
        throw UsageError { LanguageTable().text("lang.invalidStartUrl")
            + QStringLiteral(" '%1'").arg(parser.argument()) };
    }
    const QByteArray line = storeFor(parser, false).getCookieHeader(url);
    return print(line.isEmpty() ? QByteArray() : line.chopped(2) + '\n');
}

/// Every file is tried, also after one that is unusable.
int import(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("cookies import"),
        QStringLiteral("Copies a browser's cookies into the program's own."),
        QStringLiteral("cookies import ~/.mozilla/firefox/*/cookies.sqlite"), QStringLiteral("FILE..."),
        QStringLiteral("A \"cookies.txt\" or a Firefox \"cookies.sqlite\"; they are told apart by their content."),
        { 1, std::numeric_limits<qsizetype>::max() });
    addFolderOption(parser);
    if (!parser.parse(arguments))
        return Done;
    const CookieStore store = storeFor(parser, true);
    const LanguageTable language;
    qint64 count = 0;
    int status = Done;
    for (const QString& fileName : parser.arguments()) {
        CookieImport import(cookieImport::sourceFor(fileName), store);
        while (import.step()) { }
        count += import.count();
        for (QString& text : cookieImport::complaints(import, language))
            complain(text.replace(u'\n', QLatin1String(": ")));
        if (import.error())
            status = qMax<int>(status, import.error()->where == ImportError::CookieFile ? PartlyFailed : Unusable);
    }
    if (count == 0 && status != Done)
        return status;
    return qMax(status, print(cookieImport::countText(count, language).toUtf8() + '\n'));
}

int clear(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("cookies clear"), QStringLiteral("Deletes all cookies that are stored."),
        QStringLiteral("cookies clear"), {}, {}, { 0, 0 });
    addFolderOption(parser);
    if (!parser.parse(arguments))
        return Done;
    const LanguageTable language;
    const QStringList kept = storeFor(parser, false).deleteAll();
    for (const QString& fileName : kept)
        complain(language.text("lang.errWhileDelCookies") + QLatin1String(": ") + QDir::toNativeSeparators(fileName));
    return kept.isEmpty() ? print(language.text("lang.cookiesWereDel").toUtf8() + '\n') : PartlyFailed;
}

constexpr const char* help = R"(Usage: tarnwick-cli cookies ACTION ...
Works on the cookies that the program keeps.

Actions:
  import FILE...       Copies the cookies of a "cookies.txt" or a Firefox
                       "cookies.sqlite" into the program's own.
  clear                Deletes all cookies that are stored.
  show URL             Prints the Cookie line that a request for URL would carry.

Example:
  tarnwick-cli cookies import ~/.mozilla/firefox/*/cookies.sqlite
)";

} // namespace

int runCookiesCommand(const QStringList& arguments)
{
    const QString action = arguments.value(0);
    if (action == QLatin1String("import"))
        return import(arguments.sliced(1));
    if (action == QLatin1String("clear"))
        return clear(arguments.sliced(1));
    if (action == QLatin1String("show"))
        return show(arguments.sliced(1));
    if (action == QLatin1String("--help") || action == QLatin1String("-h"))
        return print(help);
    throw UsageError { QStringLiteral("cookies: unknown action '%1'; try 'cookies --help'").arg(action) };
}
