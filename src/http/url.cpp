// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/url.h"

#include "base/allgemein.h"

#include <QStringBuilder>

#include <algorithm>
#include <array>
#include <charconv>

namespace url {

namespace {

/// Where the host starts: behind the first "//".
qsizetype hostStart(QByteArrayView url)
{
    const qsizetype slashes = url.indexOf("//");
    return slashes < 0 ? 0 : slashes + 2;
}

/// ":" and the port of a URL.
class PortText {
public:
    explicit PortText(QByteArrayView url)
        : m_size(std::to_chars(m_text.begin() + 1, m_text.end(), portOf(url)).ptr - m_text.begin())
    {
    }
    [[nodiscard]] QByteArrayView text() const { return { m_text.data(), m_size }; }

private:
    std::array<char, 16> m_text { ':' };
    qsizetype m_size;
};

/// Takes `piece` off the front of `text`; false when it does not begin with it.
bool goesOnWith(QByteArrayView& text, QByteArrayView piece)
{
    const bool begins = text.startsWith(piece);
    text = text.sliced(begins ? piece.size() : 0);
    return begins;
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

Base::Base(const QByteArray& url)
    : m_url(url)
    , m_directory("http://" + hostOf(url).toByteArray() + ':' + QByteArray::number(portOf(url)))
    , m_originSize(m_directory.size())
{
    const QByteArrayView directory = directoryOf(url);
    m_directory += directory;
    m_depth = countOccurrences("/", directory) - 1;
}

QByteArrayView Base::directoryAbove(qint32 ups) const
{
    const QByteArrayView directory = m_directory;
    if (ups == 0)
        return directory;
    return directory.first(
        m_originSize + leadingDirectories(directory.sliced(m_originSize), qMax(m_depth - ups, 0)).size());
}

QByteArray Base::resolved(QByteArrayView reference) const
{
    if (reference.contains(':'))
        return reference.toByteArray();
    // Count all "../" first and cut once: a page may chain hundreds of thousands of them.
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
        return m_directory.first(m_originSize) + rest;
    if (rest == "..")
        return directoryAbove(ups + 1).toByteArray();
    if (rest.startsWith('#'))
        return ups == 0 ? m_url : directoryAbove(ups).toByteArray();
    return directoryAbove(ups) + rest;
}

QByteArray resolveReference(const QByteArray& base, const QByteArray& reference)
{
    return Base(base).resolved(reference);
}

QByteArray normalised(const QByteArray& url)
{
    const PortText port(url);
    QByteArrayView rest = url;
    // Most URLs have that form already; the result then shares their bytes.
    if (goesOnWith(rest, protocolOf(url)) && goesOnWith(rest, "://") && goesOnWith(rest, hostOf(url))
        && goesOnWith(rest, port.text()) && rest == pathOf(url))
        return url;
    return protocolOf(url).toByteArray() + "://" + hostOf(url) + port.text() + pathOf(url);
}

QByteArray fromTyped(const QByteArray& typed)
{
    const auto endOfHost = [](const QByteArray& text, qsizetype from) {
        const auto end =
            std::find_if(text.begin() + from, text.end(), [](char c) { return c == '/' || c == '?' || c == '#'; });
        return end - text.begin();
    };
    QByteArray url = typed.trimmed();
    qsizetype end = endOfHost(url, 0);
    if (url.first(end).endsWith(':') && url.sliced(end).startsWith("//"))
        end = endOfHost(url, end + 2);
    std::transform(url.begin(), url.begin() + end, url.begin(), allgemein::lower);
    return url;
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

bool isSubUrl(QByteArrayView text, QByteArrayView url, qint32 level)
{
    const QByteArrayView host = hostOf(url);
    if (!goesOnWith(text, protocolOf(url)) || !goesOnWith(text, "://") || !goesOnWith(text, lastLabels(host, level)))
        return false;
    const qint32 labels = labelCount(host);
    if (labels >= level)
        return text.isEmpty();
    return goesOnWith(text, PortText(url).text()) && text == leadingDirectories(directoryOf(url), level - labels - 1);
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
