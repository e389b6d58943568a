// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/EntryText.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "http/url.h"

#include <cmath>

namespace {

QString loadingText(const DownloadEntry& entry, const LanguageTable& language)
{
    constexpr int allDigits = 15;
    const QString speed = entry.speed
        ? QString::number(static_cast<double>(*entry.speed) / 1024, 'g', allDigits) + QLatin1String(" kiB/s")
        : QStringLiteral("0 kiB/S");
    return language.labelled(language.text("lang.dlLoading"), speed);
}

} // namespace

QString entryText::fileName(const DownloadEntry& entry)
{
    return allgemein::shownText(url::fileNameOf(entry.url));
}

QString entryText::status(const DownloadEntry& entry, const LanguageTable& language)
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
    case DownloadStatus::Stopped:
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
    case DownloadStatus::Refused:
        return language.text("more.httpStatus").arg(entry.httpStatus);
    }
    return {};
}

QString entryText::reason(const DownloadEntry& entry, const LanguageTable& language)
{
    const QString text = status(entry, language);
    return entry.failure ? language.labelled(text, entry.failure->text(language)) : text;
}

QString entryText::received(const DownloadEntry& entry)
{
    return entry.received ? QString::number(*entry.received) : QString();
}

QString entryText::size(const DownloadEntry& entry)
{
    return entry.size < 0 ? QStringLiteral("?") : QString::number(entry.size);
}

QString entryText::progress(const DownloadEntry& entry, bool inPercent)
{
    if (!entry.received)
        return {};
    if (entry.size <= 0)
        return QStringLiteral("?");
    // Round to whole percent first, halves away from zero, so that ratio and percentage always agree.
    const double percent = std::round(static_cast<double>(*entry.received) * 100 / static_cast<double>(entry.size));
    return inPercent ? QString::number(percent, 'f', 0) + u'%' : QString::number(percent / 100, 'f', 2);
}
