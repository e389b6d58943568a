// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/RequestChoices.h"

RequestChoices::RequestChoices(RequestPrefs& prefs)
    : userAgent(RequestPrefs::readyUserAgents().constFirst())
    , m_prefs(prefs)
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
}

void RequestChoices::addLanguages(const QList<QByteArray>& entries)
{
    m_prefs.sprachAuswahl += entries;
}

void RequestChoices::removeLanguage(qsizetype index)
{
    m_prefs.sprachAuswahl.removeAt(index);
}

qsizetype RequestChoices::moveLanguage(qsizetype index, int by)
{
    const qsizetype neighbour = index + by;
    if (neighbour < 0 || neighbour >= m_prefs.sprachAuswahl.size())
        return index;
    m_prefs.sprachAuswahl.swapItemsAt(index, neighbour);
    return neighbour;
}
