// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/CookiesCommand.h"

#include "app/Session.h"
#include "base/allgemein.h"
#include "console/CommandLine.h"
#include "crawl/url.h"

#include <QDir>
#include <QIODevice>

int runCookiesCommand(const QStringList& arguments)
{
    const QString action = arguments.value(0);
    const QString cookies = QStringLiteral("cookies");
    CommandParser parser(QStringLiteral("cookies show"),
        QStringLiteral("Prints the Cookie line that a request for a URL would carry."),
        QStringLiteral("cookies show http://www.example.org/shop/"), QStringLiteral("URL"),
        QStringLiteral("The URL of the request."));
    parser.addValue({ cookies }, QStringLiteral("The cookie folder. Default: the user's own."), QStringLiteral("DIR"));
    const bool asksForHelp = action == QLatin1String("--help") || action == QLatin1String("-h");
    if (action != QLatin1String("show") && !asksForHelp)
        throw UsageError { QStringLiteral("cookies: unknown action '%1'; try 'cookies show URL'").arg(action) };
    if (!parser.parse(asksForHelp ? arguments : arguments.sliced(1)))
        return Done;

    const QString typed = parser.argument();
    const QByteArray url = url::withProtocol(allgemein::toSystem(typed));
    const LanguageTable language;
    if (!url::isValidUrl(url))
        throw UsageError { language.text("lang.invalidStartUrl") + QStringLiteral(" '%1'").arg(typed) };
    CookieStore store;
    const QString folder = Session::cookieFolder(parser.value(cookies));
    // Looking must not create the folder; without it there are no cookies.
    if (QDir(folder).exists())
        store.setCookieFolder(folder);
    const QByteArray line = store.getCookieHeader(url);
    const bool printed = printToStandardOutput([&](QIODevice& out) {
        if (!line.isEmpty())
            out.write(line.chopped(2) + '\n');
    });
    return printed ? Done : PartlyFailed;
}
