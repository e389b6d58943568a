// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/TargetName.h"

#include "base/MIMETypes.h"
#include "base/allgemein.h"
#include "base/folders.h"
#include "http/url.h"

#include <algorithm>

namespace {

/// More directories than a path can have on any system.
constexpr qint32 deepest = 2000;

/// The host's labels from the top level down, the port, and the directories. Empty directories are left out, since
/// "a//b" is "a/b" in every file system. The URL must have at most `deepest` levels.
QByteArrayList piecesOf(const QByteArray& url)
{
    QByteArrayList pieces = url::components(url, deepest);
    QByteArray& port = pieces[url::labelCount(url::hostOf(url))];
    port.remove(0, 1); // the colon
    pieces.removeAll(QByteArray());
    return pieces;
}

QByteArray renamedForMs(const QByteArray& name)
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
    if (rules.extByMime)
        name = MIMETypes::extensionByMIME(name, contentType.split(';').first());
    return rules.renameForMs ? renamedForMs(name) : name;
}

/// Names that hide or reverse a part of themselves would deceive the user about the kind of the file.
QByteArray withVisibleControls(const QByteArray& name)
{
    const QString text = allgemein::fromSystem(name);
    const QString visible = allgemein::withVisibleControls(text);
    return visible == text ? name : allgemein::toSystem(visible);
}

} // namespace

TargetName TargetName::of(const QByteArray& url, const QByteArray& contentType, const NamingRules& rules)
{
    TargetName target;
    if (rules.dirByUrl && url::levelCount(url) > deepest) {
        target.refusal = Refusal::Directory;
        return target;
    }
    if (rules.dirByUrl)
        target.directories = piecesOf(url);
    target.name = nameOf(url, contentType, rules);
    const auto isPlain = [](const QByteArray& piece) {
        return allgemein::isPlainFileName(piece);
    };
    if (!std::all_of(target.directories.begin(), target.directories.end(), isPlain))
        target.refusal = Refusal::Directory;
    else if (!isPlain(target.name))
        target.refusal = Refusal::Name;
    for (QByteArray& directory : target.directories)
        directory = withVisibleControls(directory);
    target.name = withVisibleControls(target.name);
    return target;
}
