// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/twk.h"

#include "base/allgemein.h"
#include "base/lang.h"

#include <QAbstractSocket>

QString twk::referenceTypeName(ReferenceType type)
{
    switch (type) {
    case ReferenceType::Unknown:
        return QStringLiteral("?");
    case ReferenceType::Anchor:
        return QStringLiteral("anchor");
    case ReferenceType::Link:
        return QStringLiteral("link");
    case ReferenceType::AnySrc:
        return QStringLiteral("? src");
    case ReferenceType::Frame:
        return QStringLiteral("frame");
    case ReferenceType::Img:
        return QStringLiteral("img");
    }
    return {};
}

ReferenceType twk::referenceTypeFrom(QStringView name)
{
    for (const ReferenceType type : { ReferenceType::Anchor, ReferenceType::Link, ReferenceType::AnySrc,
             ReferenceType::Frame, ReferenceType::Img }) {
        if (referenceTypeName(type) == name)
            return type;
    }
    return ReferenceType::Unknown;
}

QString twk::errorText(const searchFile::LoadResult& result, const LanguageTable& language)
{
    switch (result.error) {
    case searchFile::LoadError::None:
        return {};
    case searchFile::LoadError::CannotOpen:
        return language.labelled(language.text("lang.errWhileOpening"), result.reason.text(language));
    case searchFile::LoadError::CannotRead:
        return language.labelled(language.text("lang.errWriteFile"), result.reason.text(language));
    case searchFile::LoadError::NotASearchFile:
        return language.labelled(language.text("lang.errWhileOpening"), language.text("more.notASearchFile"));
    case searchFile::LoadError::Truncated:
        return language.text("lang.errEOF");
    }
    return {};
}

QString twk::warningText(const searchFile::SkippedLine& line, const LanguageTable& language)
{
    constexpr qsizetype longest = 60;
    return language.labelled(language.text("lang.invalidAttribut"), allgemein::shownText(line.text).left(longest));
}

QString twk::stateText(const FetchReport& report, const LanguageTable& language)
{
    const auto withDetail = [&](const char* key) -> QString {
        return language.labelled(language.text(key), allgemein::shownText(report.detail));
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
    case FetchEvent::NetError:
        return language.labelled(language.text("lang.netError"),
            QString::number(report.failure.socketError()) + u':' + report.failure.text(language));
    }
    return {};
}
