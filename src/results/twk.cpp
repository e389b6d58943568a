// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/twk.h"

#include "base/allgemein.h"
#include "base/lang.h"

QString twk::referenceTypeName(ReferenzTyp typ)
{
    switch (typ) {
    case ReferenzTyp::Unbekannt:
        return QStringLiteral("?");
    case ReferenzTyp::Anchor:
        return QStringLiteral("anchor");
    case ReferenzTyp::Link:
        return QStringLiteral("link");
    case ReferenzTyp::AnySrc:
        return QStringLiteral("? src");
    case ReferenzTyp::Frame:
        return QStringLiteral("frame");
    case ReferenzTyp::Img:
        return QStringLiteral("img");
    }
    return {};
}

ReferenzTyp twk::referenceTypeFrom(QStringView name)
{
    for (const ReferenzTyp typ :
        { ReferenzTyp::Anchor, ReferenzTyp::Link, ReferenzTyp::AnySrc, ReferenzTyp::Frame, ReferenzTyp::Img }) {
        if (referenceTypeName(typ) == name)
            return typ;
    }
    return ReferenzTyp::Unbekannt;
}

QString twk::errorText(const SearchFile::LoadResult& result, const LanguageTable& language)
{
    switch (result.error) {
    case SearchFile::LoadError::None:
        return {};
    case SearchFile::LoadError::CannotOpen:
        return language.text("lang.errWhileOpening") + QLatin1String(": ") + result.systemText;
    case SearchFile::LoadError::CannotRead:
        return language.text("lang.errWriteFile") + QLatin1String(": ") + result.systemText;
    case SearchFile::LoadError::NotASearchFile:
        return language.text("lang.errWhileOpening") + QLatin1String(": ") + language.text("more.notASearchFile");
    case SearchFile::LoadError::Truncated:
        return language.text("lang.errEOF");
    }
    return {};
}

QString twk::warningText(const SearchFile::SkippedLine& line, const LanguageTable& language)
{
    constexpr qsizetype longest = 60;
    return language.text("lang.invalidAttribut") + QLatin1String(": ") + allgemein::fromSystem(line.text).left(longest);
}

QString twk::stateText(const FetchReport& report, const LanguageTable& language)
{
    const auto withDetail = [&](const char* key) -> QString {
        return language.text(key) + QLatin1String(": ") + allgemein::fromSystem(report.detail);
    };
    switch (report.event) {
    case FetchEvent::Connecting:
        return language.text("lang.netConnecting");
    case FetchEvent::Requesting:
        return language.text("lang.netRequesting");
    case FetchEvent::UnsupportedProtocol:
        return language.text("lang.netUnsupportedProtocol");
    case FetchEvent::Relocated:
        return withDetail("lang.netRelocated");
    case FetchEvent::EarlyDisconnect:
        return language.text("lang.netEarlyDisconnect");
    case FetchEvent::SocketError:
        return withDetail("lang.netError");
    }
    return {};
}
