// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/NumberedUrls.h"

#include "crawl/url.h"

#include <limits>

namespace {

constexpr qint32 letterBase = 27;

/// The character of the digit 0.
char zeroOf(IndexType type)
{
    return type == IndexType::CapitalLetters ? 'A' - 1 : 'a' - 1;
}

QByteArray inLetters(qint32 index, IndexType type)
{
    QByteArray text;
    for (qint32 rest = index; rest > 0; rest /= letterBase)
        text.prepend(static_cast<char>(zeroOf(type) + rest % letterBase));
    return text;
}

} // namespace

QByteArray indexText(qint32 index, IndexType type, qint32 minStellen)
{
    switch (type) {
    case IndexType::Decimal: {
        const QByteArray digits = QByteArray::number(qAbs(qint64 { index })).rightJustified(minStellen, '0');
        return index < 0 ? '-' + digits : digits;
    }
    case IndexType::Hexadecimal:
        return QByteArray::number(static_cast<quint32>(index), 16).toUpper();
    case IndexType::CapitalLetters:
    case IndexType::SmallLetters:
        return inLetters(index, type);
    }
    return {};
}

qint32 indexFromLetters(QByteArrayView text, IndexType type)
{
    qint64 index = 0;
    for (const char letter : text) {
        const int digit = letter - zeroOf(type);
        if (digit < 0 || digit >= letterBase)
            return 0;
        index = index * letterBase + digit;
        if (index > std::numeric_limits<qint32>::max())
            return 0;
    }
    return static_cast<qint32>(index);
}

bool NumberedUrls::confirm()
{
    const QByteArray url = startUrl.startsWith("http://") ? startUrl : "http://" + startUrl;
    if (!url::isValidUrl(url))
        return false;
    startUrl = url;
    return true;
}

QByteArray NumberedUrls::urlFor(qint32 index) const
{
    const qsizetype place = qBound(qsizetype { 0 }, pos, startUrl.size());
    return startUrl.first(place) + indexText(index, type, minStellen) + startUrl.sliced(place);
}
