// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

class QIODevice;

/// What the user wants requests to carry. The defaults are those of a program that was never used.
struct RequestPrefs {
    bool useCookies = false; ///< send the Cookie line
    bool setCookies = true; ///< store received cookies
    bool useUserAgent = true;
    QByteArray userAgent;
    bool useLanguage = false;
    /// The chosen languages in the order of preference, each with its code in the first two bytes.
    QList<QByteArray> sprachAuswahl;
    /// The Accept-Language value that is sent: what `aktSprachen` gave when the choice was last confirmed.
    QByteArray languageHeader;
    bool useReferrer = true;
    bool dontWarnAboutCookiesAgain = false;

    /// The Accept-Language value for the chosen languages, their weights falling linearly from 1; empty without any.
    [[nodiscard]] QByteArray aktSprachen() const;
    /// Chooses no language.
    void clearLanguages();

    /// The texts that are offered for the User-Agent line, the default first.
    [[nodiscard]] static QList<QByteArray> readyUserAgents();
};

/// The request preferences as lines of settings and search files.
namespace twkEinstellungen {

void writeRequestPrefs(QIODevice& file, const RequestPrefs& prefs);
/// Applies one line; false for a key that is none of the block's. Languages are added to those already chosen, as long
/// as these are fewer than 500.
bool readRequestPref(RequestPrefs& prefs, const QByteArray& key, const QByteArray& value);
/// Writes one "key=item" line for each item.
void writeListItems(QIODevice& file, QByteArrayView key, const QList<QByteArray>& items);

} // namespace twkEinstellungen
