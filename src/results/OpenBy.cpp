// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/OpenBy.h"

#include "base/allgemein.h"
#include "http/url.h"

#include <algorithm>
#include <array>

namespace {

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isOfProtocol(char c)
{
    return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
}

/// Whether a byte may end an argument in a command line.
bool endsArgument(char c)
{
    const auto code = static_cast<unsigned char>(c);
    return code <= ' ' || c == '"' || code >= 0x7f;
}

QString argumentFrom(const QByteArray& url)
{
    return QString::fromLatin1(allgemein::percentEncoded(url, &endsArgument));
}

} // namespace

bool openBy::isArgument(const QByteArray& url)
{
    const QByteArrayView protocol = url::protocolOf(url);
    return !protocol.isEmpty() && isLetter(protocol.front())
        && std::all_of(protocol.begin(), protocol.end(), &isOfProtocol);
}

QList<ProgramCommand> openBy::commands(
    const QString& program, const QString& parameter, const QList<QByteArray>& urls, bool oneInstance)
{
    QList<ProgramCommand> commands;
    QString all;
    for (const QByteArray& url : urls) {
        if (!isArgument(url))
            continue;
        if (oneInstance)
            all += u' ' + argumentFrom(url);
        else
            commands += { program, parameter + argumentFrom(url) };
    }
    if (!all.isEmpty())
        commands += { program, parameter + all };
    return commands;
}

bool openBy::isForTheSystem(const QByteArray& url)
{
    constexpr std::array protocols { "http", "https", "ftp" };
    const QByteArray protocol = url::protocolOf(url).toByteArray().toLower();
    return std::find(protocols.begin(), protocols.end(), protocol) != protocols.end() && url.contains("://");
}
