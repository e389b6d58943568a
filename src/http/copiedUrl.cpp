// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/copiedUrl.h"

#include "http/url.h"

#include <QUrl>

#include <algorithm>
#include <array>

namespace {

/// Blanks separate words of a text. Characters that are not shown could hide where a URL leads.
bool cannotBeInUrl(QChar character)
{
    return character.isSpace() || character.category() == QChar::Other_Control
        || character.category() == QChar::Other_Format;
}

} // namespace

QByteArray copiedUrl(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.size() > url::longest || std::any_of(trimmed.begin(), trimmed.end(), &cannotBeInUrl))
        return {};
    constexpr std::array schemes { "http", "https", "ftp" };
    const QUrl url(trimmed);
    const bool isTaken = std::any_of(
        schemes.begin(), schemes.end(), [&url](const char* scheme) { return url.scheme() == QLatin1String(scheme); });
    const QByteArray encoded = isTaken && url.isValid() && !url.host().isEmpty() ? url.toEncoded() : QByteArray();
    return encoded.size() <= url::longest ? encoded : QByteArray();
}
