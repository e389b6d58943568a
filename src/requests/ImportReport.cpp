// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/ImportReport.h"

#include "base/lang.h"
#include "requests/CookieImport.h"

namespace {

QString errorText(const ImportError& error, const LanguageTable& language)
{
    const QString failed = language.text("lang.errWhileImportCookies") + u'\n';
    switch (error.where) {
    case ImportError::NoStore:
        return failed + language.text("more.noExplorer");
    case ImportError::TooLarge:
        return failed + error.text + u'\n' + language.text("more.tooLarge");
    case ImportError::NotAFile:
        return failed + error.text + u'\n' + language.text("more.notAFile");
    case ImportError::NotCookies:
        return failed + error.text + u'\n' + language.text("more.notCookies");
    case ImportError::Json:
        return failed + error.text + u'\n' + language.text("more.jsonCookies");
    case ImportError::Chromium:
        return failed + error.text + u'\n' + language.text("more.chromiumCookies");
    case ImportError::File:
        return failed + error.text;
    case ImportError::Database:
        return QLatin1String("SQLite: ") + error.text;
    case ImportError::CookieFile:
        return failed + language.labelled(error.text, language.text("lang.errWriteFile"));
    }
    return {};
}

} // namespace

QString importReport::countText(qint64 count, const LanguageTable& language)
{
    return QString::number(count) + u' ' + language.text("lang.cookiesWereSet");
}

QStringList importReport::notes(const ImportCount& count, const LanguageTable& language)
{
    QStringList notes;
    const auto add = [&](const char* key, qint64 number) {
        if (number > 0)
            notes += language.text(key).arg(number);
    };
    add("more.neverSentCookies", count.neverSent);
    add("more.secureCookies", count.secure);
    add("more.expiredCookies", count.expired);
    return notes;
}

QStringList importReport::complaints(const CookieImport& cookies, const LanguageTable& language)
{
    QStringList complaints;
    if (cookies.error())
        complaints += errorText(*cookies.error(), language);
    // "Not a cookie file" says it all; line numbers would only repeat it.
    const bool isToldOf = cookies.error() && cookies.error()->where == ImportError::NotCookies;
    if (const PassedOver& passedOver = cookies.passedOver(); !passedOver.lines.isEmpty() && !isToldOf)
        complaints += passedOver.lines.note(passedOver.fileName, "more.unusableCookies", language);
    return complaints;
}

Messages::Box importReport::box(const CookieImport& cookies, const LanguageTable& language)
{
    QStringList texts = complaints(cookies, language);
    const Messages::Sign sign = texts.isEmpty() ? Messages::Sign::Information : Messages::Sign::Warning;
    const ImportCount& count = cookies.count();
    if (!cookies.error() || count.stored > 0 || count.leftOut() > 0)
        texts += (QStringList(countText(count.stored, language)) + notes(count, language)).join(u'\n');
    return { sign, language.text(cookies.error() ? "lang.errTitle" : "lang.note"), texts.join(QLatin1String("\n\n")) };
}
