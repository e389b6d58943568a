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

bool CookieImport::readNext()
{
    if (!m_source)
        return false;
    if (const auto foreign = m_source->next()) {
        const QByteArray host = withoutLeadingDot(foreign->host);
        if (m_store.isStorable(host, foreign->cookie))
            m_cookies[host] += foreign->cookie;
        return true;
    }
    m_error = m_source->error();
    m_source.reset();
    return false;
}

// Each host's file is written once: there may be thousands of cookies.
bool CookieImport::storeNext()
{
    if (m_cookies.isEmpty())
        return false;
    const auto next = m_cookies.cbegin();
    if (m_store.saveCookies(next.key(), next.value()))
        m_count += next.value().size();
    else if (!m_error)
        m_error = { ImportError::CookieFile, allgemein::fromSystem(next.key()) };
    m_cookies.erase(next);
    return true;
}

Messages::Box cookieImport::report(qint64 count, const std::optional<ImportError>& error, const LanguageTable& language)
{
    const QString counted = QString::number(count) + u' ' + language.text("lang.cookiesWereSet");
    if (!error)
        return { Messages::Sign::Information, language.text("lang.note"), counted };
    const QString failed = errorText(*error, language);
    return { Messages::Sign::Warning, language.text("lang.errTitle"),
        count > 0 ? failed + QLatin1String("\n\n") + counted : failed };
}

std::unique_ptr<CookieSource> cookieImport::sourceFor(const QString& fileName)
{
    if (FirefoxDatabase::isDatabase(fileName))
        return std::make_unique<FirefoxDatabase>(fileName);
    return std::make_unique<CookiesTxt>(fileName);
}
