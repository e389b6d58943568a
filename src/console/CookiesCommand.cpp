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
    const bool shows = action == QLatin1String("show");
    if (!parser.parse(shows ? arguments.sliced(1) : arguments))
        return Done;
    if (!shows)
        throw UsageError { QStringLiteral("cookies: unknown action '%1'; try 'cookies show'").arg(action) };

    const QString typed = parser.argument();
    const QByteArray given = allgemein::toSystem(typed);
    const QByteArray url = given.contains("://") ? given : "http://" + given;
    const LanguageTable language;
    if (!url::isValidUrl(url))
        throw UsageError { language.text("lang.invalidStartUrl") + QStringLiteral(" '%1'").arg(typed) };
    CookieStore store;
    const QString folder = parser.value(cookies);
    store.setCookieFolder(folder.isEmpty() ? Session::userCookieFolder() : QDir(folder).absolutePath());
    const QByteArray line = store.getCookieHeader(url);
    const bool printed = printToStandardOutput([&](QIODevice& out) {
        if (!line.isEmpty())
            out.write(line.trimmed() + '\n');
    });
    return printed ? Done : PartlyFailed;
}
