// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QByteArrayView>

/// The one place where URL text is taken apart and put together. Everything here works on plain bytes, exactly and
/// without decoding; stored URLs, cookie files and sub-URL limits are compared with what it returns, so its treatment
/// of odd URLs (a ":" in the path, a "/" in the query) must not change.
///
/// A URL is protocol "://" host [":" port] path, the path carrying query and fragment. A *level* cuts it into nested
/// prefixes: for a host of k labels, levels 1 to k keep the last 1 to k labels, level k+1 adds the port and the root
/// directory, and each further level one more directory.
namespace url {

/// In bytes. A longer URL is not recorded: each short reference on its page would become a URL of that length.
constexpr qsizetype longest = 8 * 1024;

/// What stands before the first ":"; empty without one.
[[nodiscard]] QByteArrayView protocolOf(QByteArrayView url);
/// From behind the first "//" (or the start) to the next ":", or else to the next "/", or else to the end. The ":" is
/// looked for first, so the host of "http://h/a:b" is "h/a".
[[nodiscard]] QByteArrayView hostOf(QByteArrayView url);
/// The number behind the host's ":"; 80 without a ":", 0 when the ":" stands behind the first "/" or no number
/// between -2^31 and 2^31-1 follows it. The range of TCP ports is not checked.
[[nodiscard]] qint32 portOf(QByteArrayView url);
/// From the first "/" behind "://" to the end; "/" when there is none.
[[nodiscard]] QByteArrayView pathOf(QByteArrayView url);
/// `pathOf` up to its last "/", which may stand in the query.
[[nodiscard]] QByteArrayView directoryOf(QByteArrayView url);
/// What follows the last "/", and of that what follows the last "\".
[[nodiscard]] QByteArrayView fileNameOf(QByteArrayView url);

/// A page as the base of the references that stand on it, taken apart once for all of them.
class Base {
public:
    explicit Base(const QByteArray& url);

    /// The absolute URL of a reference. A reference with a ":" comes back unchanged; otherwise the result has the
    /// protocol "http" and always names the port. Only leading "./" and "../" are resolved.
    [[nodiscard]] QByteArray resolved(QByteArrayView reference) const;

private:
    /// The page's directory, or the one `ups` directories above it, but never above the root.
    [[nodiscard]] QByteArrayView directoryAbove(qint32 ups) const;

    QByteArray m_url;
    QByteArray m_directory; ///< "http://", the host, its port, and the directory
    qsizetype m_originSize = 0; ///< the length of "http://", the host, and its port
    qint32 m_depth = 0; ///< how many directories deep the page's directory is
};

/// The absolute URL of a reference that stands on the page `base`, as `Base` resolves it.
[[nodiscard]] QByteArray resolveReference(const QByteArray& base, const QByteArray& reference);
/// protocol "://" host ":" port path, the form in which found URLs are recorded and compared.
[[nodiscard]] QByteArray normalised(const QByteArray& url);
/// What somebody typed as it is meant: without blanks around it, its protocol and host in small letters, since neither
/// depends on case.
[[nodiscard]] QByteArray fromTyped(const QByteArray& typed);
/// What somebody typed, with "http://" in front when there is no "://".
[[nodiscard]] QByteArray withProtocol(const QByteArray& typed);
/// Whether there is a "://", a protocol, and a host that neither begins nor ends with ".".
[[nodiscard]] bool isValidUrl(QByteArrayView url);

/// How many labels the host has: its dots plus one.
[[nodiscard]] qint32 labelCount(QByteArrayView host);
/// The level that keeps the whole directory.
[[nodiscard]] qint32 levelCount(QByteArrayView url);
/// The URL cut to a level. A level beyond the last directory keeps the whole directory.
[[nodiscard]] QByteArray subUrl(QByteArrayView url, qint32 level);
/// Whether `text` is the URL cut to a level. Faster than comparing with `subUrl`, since nothing is copied.
[[nodiscard]] bool isSubUrl(QByteArrayView text, QByteArrayView url, qint32 level);
/// The piece that the level after `level` (0-based) adds: a host label, counted from the right, then the port (with
/// ":" in front when `withColon`), then the directory names. Empty beyond the last directory.
[[nodiscard]] QByteArray urlComponent(QByteArrayView url, qint32 level, bool withColon);

/// What `urlComponent` gives for the levels from 0 on, with the colon, but no more than the first `most` of them. One
/// walk along the URL, however many there are.
[[nodiscard]] QByteArrayList components(QByteArrayView url, qint32 most);

/// The last `n` dot-separated labels; the whole host when it has fewer, empty for n = 0.
[[nodiscard]] QByteArrayView lastLabels(QByteArrayView host, qint32 n);
/// `path` up to and including its (k+1)-th "/", or its last one when it has fewer. Empty without a "/".
[[nodiscard]] QByteArrayView leadingDirectories(QByteArrayView path, qint32 k);
/// How often `needle` (not empty) occurs, overlapping occurrences counted.
[[nodiscard]] qint32 countOccurrences(QByteArrayView needle, QByteArrayView text);

} // namespace url
