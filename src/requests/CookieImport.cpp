// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookieImport.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "requests/CookiesTxt.h"
#include "requests/FirefoxDatabase.h"

#include <utility>

namespace {

/// A browser marks a domain with a dot in front, under which the cookie would never be found again.
QByteArray withoutLeadingDot(const QByteArray& host)
{
    return host.startsWith('.') ? host.sliced(1) : host;
}

QString errorText(const ImportError& error, const LanguageTable& language)
{
    const QString failed = language.text("lang.errWhileImportCookies") + u'\n';
    switch (error.where) {
    case ImportError::NoStore:
        return failed + language.text("more.noExplorer");
    case ImportError::TooLarge:
        return failed + error.text + u'\n' + language.text("more.tooLarge");
    case ImportError::NotCookies:
        return failed + error.text + u'\n' + language.text("more.notCookies");
    case ImportError::File:
        return failed + error.text;
    case ImportError::Database:
        return QLatin1String("SQLite: ") + error.text;
    case ImportError::CookieFile:
        return failed + error.text + QLatin1String(": ") + language.text("lang.errWriteFile");
    }
    return {};
}

} // namespace

CookieImport::CookieImport(std::unique_ptr<CookieSource> source, const CookieStore& store)
    : m_source(std::move(source))
    , m_store(store)
{
}

bool CookieImport::step()
{
    // Each host's file is best written once, but anybody may have written what is read.
    constexpr qsizetype mostBytes = 16 * 1024 * 1024;
    m_isStoring = !m_hosts.isEmpty() && (m_isStoring || !m_source || m_bytes > mostBytes);
    if (m_isStoring)
        storeNext();
    else if (m_source)
        readNext();
    return m_source || !m_hosts.isEmpty();
}

void CookieImport::readNext()
{
    if (m_source->read([this](const ForeignCookie& foreign) { gather(foreign); }))
        return;
    if (!m_error)
        m_error = m_source->error();
    m_passedOver = m_source->passedOver();
    m_source.reset();
}

void CookieImport::gather(const ForeignCookie& foreign)
{
    const QByteArray host = withoutLeadingDot(foreign.host);
    const Cookie& cookie = foreign.cookie;
    if (!m_store.isStorable(host, cookie))
        return;
    QList<Cookie>& cookies = m_cookies[host];
    if (cookies.isEmpty())
        m_hosts += host;
    cookies += cookie;
    m_bytes += host.size() + cookie.path.size() + cookie.name.size() + cookie.value.size();
}

void CookieImport::storeNext()
{
    const QByteArray host = m_hosts.takeLast();
    const QList<Cookie> cookies = m_cookies.take(host);
    if (m_store.saveCookies(host, cookies))
        m_count += cookies.size();
    else if (!m_error)
        m_error = { ImportError::CookieFile, allgemein::fromSystem(host) };
    if (m_hosts.isEmpty())
        m_bytes = 0;
}

QString cookieImport::countText(qint64 count, const LanguageTable& language)
{
    return QString::number(count) + u' ' + language.text("lang.cookiesWereSet");
}

QStringList cookieImport::complaints(const CookieImport& import, const LanguageTable& language)
{
    QStringList complaints;
    if (import.error())
        complaints += errorText(*import.error(), language);
    // A file without a single cookie was told of as a whole.
    const bool isToldOf = import.error() && import.error()->where == ImportError::NotCookies;
    if (const PassedOver& passedOver = import.passedOver(); !passedOver.lines.isEmpty() && !isToldOf)
        complaints += passedOver.lines.note(passedOver.fileName, "more.unusableCookies", language);
    return complaints;
}

Messages::Box cookieImport::report(const CookieImport& import, const LanguageTable& language)
{
    QStringList texts = complaints(import, language);
    const Messages::Sign sign = texts.isEmpty() ? Messages::Sign::Information : Messages::Sign::Warning;
    if (!import.error() || import.count() > 0)
        texts += countText(import.count(), language);
    return { sign, language.text(import.error() ? "lang.errTitle" : "lang.note"), texts.join(QLatin1String("\n\n")) };
}

std::unique_ptr<CookieSource> cookieImport::sourceFor(const QString& fileName)
{
    if (FirefoxDatabase::isDatabase(fileName))
        return std::make_unique<FirefoxDatabase>(fileName);
    return std::make_unique<CookiesTxt>(fileName);
}
