// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/WebOptions.h"

#include "console/SharedOptions.h"
#include "http/WebRules.h"

#include <QSslCertificate>
#include <QUrl>

namespace {

constexpr Option modern { .name = "modern",
    .help = "Speak as a browser does: https, kept connections, packed bodies, and cookies by today's rules. A server "
            "may be silent for 30 seconds, and an error page is no download." };
constexpr Option ca {
    .name = "ca", .value = "FILE", .help = "Accept certificates signed by those in FILE (PEM), beside the system's."
};
constexpr Option insecureHost {
    .name = "insecure-host", .value = "HOST", .help = "Accept any certificate of HOST. Repeatable."
};
constexpr Option proxy {
    .name = "proxy", .value = "URL", .help = "An http:// or socks5:// proxy, or none. Default: the system's."
};

constexpr std::array options { &modern, &ca, &insecureHost, &proxy, &sharedOptions::timeLimit };
constexpr std::array onlyModern { &ca, &insecureHost, &proxy };

QString certificateFileFrom(const CommandLine& line)
{
    QString file = line.value(ca);
    if (line.isSet(ca) && QSslCertificate::fromPath(file).isEmpty())
        throw UsageError { QStringLiteral("--ca: '%1' holds no certificate in the PEM format").arg(file) };
    return file;
}

QString proxyFrom(const CommandLine& line)
{
    QString text = line.value(proxy);
    const QUrl url(text);
    const bool isKnown = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("socks5");
    if (line.isSet(proxy) && text != QLatin1String("none") && (!isKnown || url.host().isEmpty()))
        throw UsageError { QStringLiteral("--proxy needs an http:// or socks5:// URL, or none") };
    return text;
}

} // namespace

const OptionGroup webOptions::group = options;

WebRules webOptions::rulesFrom(const CommandLine& line)
{
    for (const Option* const option : onlyModern) {
        if (line.isSet(*option) && !line.isSet(modern))
            throw UsageError { QStringLiteral("--%1 needs --modern").arg(QLatin1String(option->name)) };
    }
    WebRules rules = line.isSet(modern) ? WebRules::modern() : WebRules();
    rules.certificateFile = certificateFileFrom(line);
    rules.proxy = proxyFrom(line);
    for (const QString& host : line.values(insecureHost))
        rules.exceptedHosts.insert(host.toLatin1().toLower());
    if (line.isSet(sharedOptions::timeLimit))
        rules.silenceLimit = std::chrono::seconds(line.wholeNumber(sharedOptions::timeLimit));
    return rules;
}
