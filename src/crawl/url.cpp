// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/url.h"

#include "base/allgemein.h"

#include <QStringBuilder>

namespace url {

namespace {

/// Where the host starts: behind the first "//".
qsizetype hostStart(QByteArrayView url)
{
    const qsizetype slashes = url.indexOf("//");
    return slashes < 0 ? 0 : slashes + 2;
}

/// "http://", the base's host, and its port.
QByteArray httpOrigin(QByteArrayView base)
{
    return "http://" + hostOf(base).toByteArray() + ':' + QByteArray::number(portOf(base));
}

/// The directory of `base`, or the one `ups` directories above it; the root is above nothing.
QByteArray directoryAbove(QByteArrayView base, qint32 ups)
{
    const QByteArrayView directory = directoryOf(base);
    const qint32 depth = countOccurrences("/", directory) - 1;
    return httpOrigin(base) + leadingDirectories(directory, qMax(depth - ups, 0));
}

} // namespace

QByteArrayView protocolOf(QByteArrayView url)
{
    return url.first(qMax<qsizetype>(0, url.indexOf(':')));
}

QByteArrayView hostOf(QByteArrayView url)
{
    const qsizetype start = hostStart(url);
    qsizetype end = url.indexOf(':', start);
    if (end < 0)
        end = url.indexOf('/', start);
    return end < 0 ? url.sliced(start) : url.sliced(start, end - start);
}

qint32 portOf(QByteArrayView url)
{
    const qsizetype start = hostStart(url);
    const qsizetype colon = url.indexOf(':', start);
    if (colon < 0)
        return 80;
    const qsizetype slash = url.indexOf('/', start);
    if (slash >= 0 && colon > slash)
        return 0;
    return allgemein::leadingNumber32(slash < 0 ? url.sliced(colon + 1) : url.sliced(colon + 1, slash - colon - 1));
}

QByteArrayView pathOf(QByteArrayView url)
{
    const qsizetype colon = url.indexOf(':');
    const qsizetype start = colon < 0 ? 0 : colon + 3;
    const qsizetype slash = start < url.size() ? url.indexOf('/', start) : allgemein::notFound;
    return slash < 0 ? QByteArrayView("/") : url.sliced(slash);
}

QByteArrayView directoryOf(QByteArrayView url)
{
    const QByteArrayView path = pathOf(url);
    return path.first(path.lastIndexOf('/') + 1);
}

QByteArrayView fileNameOf(QByteArrayView url)
{
    const QByteArrayView name = url.sliced(url.lastIndexOf('/') + 1);
    return name.sliced(name.lastIndexOf('\\') + 1);
}

QByteArray resolveReference(const QByteArray& base, const QByteArray& reference)
{
    if (reference.contains(':'))
        return reference;
    // Counted first and cut once: a page may chain hundreds of thousands of them.
    qint32 ups = 0;
    QByteArrayView rest = reference;
    for (;;) {
        if (rest.startsWith("../")) {
            ++ups;
            rest = rest.sliced(3);
        } else if (rest.startsWith("./")) {
            rest = rest.sliced(2);
        } else {
            break;
        }
    }
    if (rest.startsWith('/'))
        return httpOrigin(base) + rest;
    if (rest == "..")
        return directoryAbove(base, ups + 1);
    if (rest.startsWith('#'))
        return ups == 0 ? base : directoryAbove(base, ups);
    return directoryAbove(base, ups) + rest;
}

QByteArray normalised(QByteArrayView url)
{
    return protocolOf(url).toByteArray() + "://" + hostOf(url) + ':' + QByteArray::number(portOf(url)) + pathOf(url);
}

QByteArray withProtocol(const QByteArray& typed)
{
    return typed.contains("://") ? typed : "http://" + typed;
}

bool isValidUrl(QByteArrayView url)
{
    const QByteArrayView host = hostOf(url);
    return url.contains("://") && !protocolOf(url).isEmpty() && !host.isEmpty() && !host.startsWith('.')
        && !host.endsWith('.');
}

qint32 labelCount(QByteArrayView host)
{
    return countOccurrences(".", host) + 1;
}

qint32 levelCount(QByteArrayView url)
{
    return labelCount(hostOf(url)) + countOccurrences("/", directoryOf(url));
}

QByteArray subUrl(QByteArrayView url, qint32 level)
{
    const QByteArrayView host = hostOf(url);
    const qint32 labels = labelCount(host);
    QByteArray result = protocolOf(url).toByteArray() + "://" + lastLabels(host, level);
    if (labels < level) {
        result += ':' + QByteArray::number(portOf(url));
        result += leadingDirectories(directoryOf(url), level - labels - 1);
    }
    return result;
}

QByteArray urlComponent(QByteArrayView url, qint32 level, bool withColon)
{
    const QByteArrayView host = hostOf(url);
    const qint32 dots = labelCount(host) - 1;
    if (level <= dots) {
        const QByteArrayView labels = lastLabels(host, level + 1);
        const qsizetype dot = labels.indexOf('.');
        return (dot < 0 ? labels : labels.first(dot)).toByteArray();
    }
    if (level == dots + 1)
        return (withColon ? ":" : "") + QByteArray::number(portOf(url));
    const QByteArrayView directory = directoryOf(url);
    const QByteArrayView outer = leadingDirectories(directory, level - dots - 2);
    const QByteArrayView inner = leadingDirectories(directory, level - dots - 1);
    return inner.size() == outer.size() ? QByteArray() : inner.sliced(outer.size()).chopped(1).toByteArray();
}

QByteArrayList components(QByteArrayView url, qint32 most)
{
    QByteArrayList pieces;
    QByteArrayView host = hostOf(url);
    for (bool more = true; more && pieces.size() < most;) {
        const qsizetype dot = host.lastIndexOf('.');
        pieces += host.sliced(dot + 1).toByteArray();
        more = dot >= 0;
        host = host.first(qMax<qsizetype>(dot, 0));
    }
    if (pieces.size() < most)
        pieces += ':' + QByteArray::number(portOf(url));
    const QByteArrayView directory = directoryOf(url);
    for (qsizetype start = 1; start < directory.size() && pieces.size() < most;) {
        const qsizetype slash = directory.indexOf('/', start);
        pieces += directory.sliced(start, slash - start).toByteArray();
        start = slash + 1;
    }
    return pieces;
}

QByteArrayView lastLabels(QByteArrayView host, qint32 n)
{
    if (n <= 0 || host.isEmpty())
        return {};
    qsizetype start = host.size();
    for (qint32 label = 0; label < n; ++label) {
        const qsizetype dot = host.first(start).lastIndexOf('.');
        if (dot < 0)
            return host;
        start = dot;
    }
    return host.sliced(start + 1);
}

QByteArrayView leadingDirectories(QByteArrayView path, qint32 k)
{
    qsizetype end = path.indexOf('/') + 1;
    for (qint32 directory = 0; directory < k; ++directory) {
        const qsizetype slash = path.indexOf('/', end);
        if (slash < 0)
            break;
        end = slash + 1;
    }
    return path.first(end);
}

qint32 countOccurrences(QByteArrayView needle, QByteArrayView text)
{
    qint32 count = 0;
    for (qsizetype at = text.indexOf(needle); at >= 0; at = text.indexOf(needle, at + 1))
        ++count;
    return count;
}

} // namespace url
