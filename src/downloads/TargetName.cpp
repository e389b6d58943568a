// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/TargetName.h"

#include "base/MIMETypes.h"
#include "base/allgemein.h"
#include "crawl/url.h"

#include <algorithm>

namespace {

/// No system takes a path of more directories.
constexpr qint32 deepest = 2000;

/// The host's labels from the top level down, the port, and the directories. An empty directory is the one that it
/// stands in. The URL is no deeper than that.
QByteArrayList piecesOf(const QByteArray& url)
{
    QByteArrayList pieces = url::components(url, deepest);
    QByteArray& port = pieces[url::labelCount(url::hostOf(url))];
    port.remove(0, 1); // the colon
    pieces.removeAll(QByteArray());
    return pieces;
}

QByteArray renamedForMS(const QByteArray& name)
{
    const auto isForbidden = [](char c) {
        return QByteArrayView("<>|\"?*:\\/").contains(c);
    };
    const QByteArray renamed = allgemein::percentEncoded(name, isForbidden);
    return renamed.isEmpty() ? QByteArrayLiteral("index") : renamed;
}

QByteArray nameOf(const QByteArray& url, const QByteArray& contentType, const NamingRules& rules)
{
    QByteArray name = url.sliced(url.lastIndexOf('/') + 1);
    if (rules.extByMIME)
        name = MIMETypes::extensionByMIME(name, contentType.split(';').first());
    return rules.renameForMS ? renamedForMS(name) : name;
}

} // namespace

targetName::Result targetName::of(const QByteArray& url, const QByteArray& contentType, const NamingRules& rules)
{
    Result result;
    if (rules.dirByUrl && url::levelCount(url) > deepest) {
        result.refusal = Refusal::Directory;
        return result;
    }
    if (rules.dirByUrl)
        result.target.directories = piecesOf(url);
    const auto isPlain = [](const QByteArray& piece) {
        return allgemein::isPlainFileName(piece);
    };
    result.target.name = nameOf(url, contentType, rules);
    if (!std::all_of(result.target.directories.begin(), result.target.directories.end(), isPlain))
        result.refusal = Refusal::Directory;
    else if (!isPlain(result.target.name))
        result.refusal = Refusal::Name;
    return result;
}
