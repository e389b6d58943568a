// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/RequestChoices.h"

RequestChoices::RequestChoices(RequestPrefs& prefs, RequestPrefs& own)
    : userAgent(RequestPrefs::readyUserAgents().constFirst())
    , m_prefs(prefs)
    , m_own(own)
{
    begin();
}

void RequestChoices::begin()
{
    useCookies = m_prefs.useCookies;
    setCookies = m_prefs.setCookies;
    useUserAgent = m_prefs.useUserAgent;
    useLanguage = m_prefs.useLanguage;
    useReferrer = m_prefs.useReferrer;
}

void RequestChoices::apply()
{
    m_prefs.useCookies = useCookies;
    m_prefs.setCookies = setCookies;
    m_prefs.userAgent = userAgent;
    m_prefs.useUserAgent = useUserAgent;
    m_prefs.useLanguage = useLanguage;
    m_prefs.languageHeader = languageHeader();
    m_prefs.useReferrer = useReferrer;
    m_own = m_prefs;
}

void RequestChoices::dontWarnAgain()
{
    m_prefs.dontWarnAboutCookiesAgain = true;
    m_own.dontWarnAboutCookiesAgain = true;
}

void RequestChoices::setLanguages(const QList<QByteArray>& languages)
{
    if (m_own.sprachAuswahl == m_prefs.sprachAuswahl)
        m_own.sprachAuswahl = languages;
    m_prefs.sprachAuswahl = languages;
}

void RequestChoices::addLanguages(const QList<QByteArray>& entries)
{
    setLanguages(languages() + entries);
}

void RequestChoices::removeLanguage(qsizetype index)
{
    QList<QByteArray> rest = languages();
    rest.removeAt(index);
    setLanguages(rest);
}

qsizetype RequestChoices::moveLanguage(qsizetype index, int by)
{
    const qsizetype neighbour = index + by;
    if (neighbour < 0 || neighbour >= m_prefs.sprachAuswahl.size())
        return index;
    QList<QByteArray> order = languages();
    order.swapItemsAt(index, neighbour);
    setLanguages(order);
    return neighbour;
}
