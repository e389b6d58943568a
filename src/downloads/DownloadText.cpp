// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/DownloadText.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "crawl/url.h"

#include <cmath>

namespace {

QString loadingText(const DownloadEntry& entry, const LanguageTable& language)
{
    const QString loading = language.text("lang.dlLoading") + QLatin1String(": ");
    if (!entry.speed)
        return loading + QLatin1String("0 kiB/S");
    constexpr int allDigits = 15;
    return loading + QString::number(static_cast<double>(*entry.speed) / 1024, 'g', allDigits)
        + QLatin1String(" kiB/s");
}

} // namespace

QString downloadText::fileName(const DownloadEntry& entry)
{
    return allgemein::shownText(url::fileNameOf(entry.url));
}

QString downloadText::status(const DownloadEntry& entry, const LanguageTable& language)
{
    switch (entry.status) {
    case DownloadStatus::None:
        return {};
    case DownloadStatus::Enqueued:
        return language.text("lang.dlFileEnqueued");
    case DownloadStatus::Requesting:
        return language.text("lang.netRequesting");
    case DownloadStatus::Loading:
        return loadingText(entry, language);
    case DownloadStatus::Complete:
        return language.text("lang.dlComplete");
    case DownloadStatus::TooShort:
        return language.text("lang.dlwarnTooShortFile");
    case DownloadStatus::Relocated:
        return language.text("lang.netRelocated");
    case DownloadStatus::UnsupportedProtocol:
        return language.text("lang.netUnsupportedProtocol");
    case DownloadStatus::EarlyDisconnect:
        return language.text("lang.netEarlyDisconnect");
    case DownloadStatus::NetError:
        return language.text("lang.netError");
    case DownloadStatus::CannotCreateDirectory:
        return language.text("lang.errDL_createDir");
    case DownloadStatus::FileExists:
        return language.text("lang.dlFileAlreadyExists");
    case DownloadStatus::CannotCreateFile:
        return language.text("lang.errDL_create");
    case DownloadStatus::CannotWrite:
        return language.text("lang.errDL_write");
    }
    return {};
}

QString downloadText::received(const DownloadEntry& entry)
{
    return entry.received ? QString::number(*entry.received) : QString();
}

QString downloadText::size(const DownloadEntry& entry)
{
    return entry.size < 0 ? QStringLiteral("?") : QString::number(entry.size);
}

QString downloadText::progress(const DownloadEntry& entry, bool inPercent)
{
    if (!entry.received)
        return {};
    if (entry.size <= 0)
        return QStringLiteral("?");
    // To whole hundredths before it is written, halves away from zero.
    const double percent = std::round(static_cast<double>(*entry.received) * 100 / static_cast<double>(entry.size));
    return inPercent ? QString::number(percent, 'f', 0) + u'%' : QString::number(percent / 100, 'f', 2);
}
