// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/RequestPrefs.h"

#include "base/SwitchKeys.h"
#include "base/allgemein.h"

namespace {

constexpr std::array switchKeys {
    SwitchKey<RequestPrefs> { "Referrer", &RequestPrefs::useReferrer },
    SwitchKey<RequestPrefs> { "UseUserAgent", &RequestPrefs::useUserAgent },
    SwitchKey<RequestPrefs> { "UseLanguage", &RequestPrefs::useLanguage },
    SwitchKey<RequestPrefs> { "useCookies", &RequestPrefs::useCookies },
    SwitchKey<RequestPrefs> { "setCookies", &RequestPrefs::setCookies },
    SwitchKey<RequestPrefs> { "dontWarnAboutCookiesAgain", &RequestPrefs::dontWarnAboutCookiesAgain },
};

/// A weight with up to 15 significant digits and a decimal point.
QByteArray weight(qsizetype rank, qsizetype count)
{
    return QByteArray::number(static_cast<double>(count - rank) / static_cast<double>(count), 'g', 15);
}

void takeLanguage(RequestPrefs& prefs, const QByteArray& entry)
{
    constexpr qsizetype most = 500;
    if (prefs.sprachAuswahl.size() >= most)
        return;
    prefs.sprachAuswahl += entry;
    prefs.languageHeader = prefs.aktSprachen();
}

} // namespace

QByteArray RequestPrefs::aktSprachen() const
{
    QByteArray value;
    for (qsizetype rank = 0; rank < sprachAuswahl.size(); ++rank) {
        if (rank > 0)
            value += ", ";
        value += sprachAuswahl[rank].left(2) + ";q=" + weight(rank, sprachAuswahl.size());
    }
    return value;
}

void RequestPrefs::clearLanguages()
{
    sprachAuswahl.clear();
    languageHeader.clear();
}

QList<QByteArray> RequestPrefs::readyUserAgents()
{
    return {
        "Tarnwick 1 (http://tarnwick.example/)",
        "Googlebot/2.1 (+http://www.google.com/bot.html)",
        "Mozilla/5.0 (Windows; U; Windows NT 5.1; de; rv:1.8.1.15) Gecko/20080623 Firefox/2.0.0.15",
        "Opera/9.10 (Windows NT 5.0; U; de)",
        "Mozilla/4.0 (compatible; MSIE 7.0; Windows NT 5.1; .NET CLR 2.0.50727; .NET CLR 3.0.04506.648; "
        ".NET CLR 3.5.21022)",
    };
}

void twkEinstellungen::writeRequestPrefs(QIODevice& file, const RequestPrefs& prefs)
{
    using allgemein::writeKeyValue;
    using allgemein::writeSwitch;
    writeKeyValue(file, "Referrer", writeSwitch(prefs.useReferrer));
    writeKeyValue(file, "UseUserAgent", writeSwitch(prefs.useUserAgent));
    writeKeyValue(file, "UserAgent", prefs.userAgent);
    writeKeyValue(file, "UseLanguage", writeSwitch(prefs.useLanguage));
    writeListItems(file, "Language", prefs.sprachAuswahl);
    writeKeyValue(file, "useCookies", writeSwitch(prefs.useCookies));
    writeKeyValue(file, "setCookies", writeSwitch(prefs.setCookies));
    writeKeyValue(file, "dontWarnAboutCookiesAgain", writeSwitch(prefs.dontWarnAboutCookiesAgain));
}

bool twkEinstellungen::readRequestPref(RequestPrefs& prefs, const QByteArray& key, const QByteArray& value)
{
    if (key == "UserAgent") {
        prefs.userAgent = value;
    } else if (key == "Language") {
        takeLanguage(prefs, value);
    } else {
        return readSwitchKey(prefs, switchKeys, key, value);
    }
    return true;
}

void twkEinstellungen::writeListItems(QIODevice& file, QByteArrayView key, const QList<QByteArray>& items)
{
    for (const QByteArray& item : items)
        allgemein::writeKeyValue(file, key, item);
}
