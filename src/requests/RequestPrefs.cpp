// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/RequestPrefs.h"

#include "base/StoredSetting.h"

#include <array>

namespace {

/// A weight with up to 15 significant digits and a decimal point in every locale.
QByteArray weight(qsizetype rank, qsizetype count)
{
    return QByteArray::number(static_cast<double>(count - rank) / static_cast<double>(count), 'g', 15);
}

void readLanguage(RequestPrefs& prefs, const QByteArray& entry)
{
    constexpr qsizetype most = 500;
    if (prefs.sprachAuswahl.size() >= most)
        return;
    prefs.sprachAuswahl += entry;
    prefs.languageHeader = prefs.aktSprachen();
}

using Row = StoredSetting<RequestPrefs>;

const std::array rows {
    Row::onOff("Referrer", &RequestPrefs::useReferrer),
    Row::onOff("UseUserAgent", &RequestPrefs::useUserAgent),
    Row::text("UserAgent", &RequestPrefs::userAgent),
    Row::onOff("UseLanguage", &RequestPrefs::useLanguage),
    Row { "Language", &readLanguage, &RequestPrefs::sprachAuswahl },
    Row::onOff("useCookies", &RequestPrefs::useCookies),
    Row::onOff("setCookies", &RequestPrefs::setCookies),
    Row::onOff("dontWarnAboutCookiesAgain", &RequestPrefs::dontWarnAboutCookiesAgain),
};

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
    writeSettings(file, prefs, rows);
}

bool twkEinstellungen::readRequestPref(RequestPrefs& prefs, const QByteArray& key, const QByteArray& value)
{
    return readSetting(prefs, rows, key, value);
}
