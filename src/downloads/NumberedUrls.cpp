// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/NumberedUrls.h"

#include "base/LetterNumbers.h"
#include "base/allgemein.h"
#include "http/url.h"

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
        return letterNumbers::text(index, letterNumbers::Letters::Capital);
    case IndexType::SmallLetters:
        return letterNumbers::text(index, letterNumbers::Letters::Small);
    }
    return {};
}

bool NumberedUrls::confirm()
{
    QByteArray url = url::withProtocol(startUrl);
    if (allgemein::startsWithNoCase(url, "http://"))
        url.replace(0, 4, "http");
    if (!url::isValidUrl(url))
        return false;
    startUrl = url;
    return true;
}

QByteArray NumberedUrls::urlFor(qint32 index) const
{
    const QString text = allgemein::fromSystem(startUrl);
    const qsizetype place = qBound(qsizetype { 0 }, pos, text.size());
    return allgemein::toSystem(text.first(place)) + indexText(index, type, minStellen)
        + allgemein::toSystem(text.sliced(place));
}
