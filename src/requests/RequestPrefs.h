// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

class QIODevice;

/// What requests carry. The defaults are those of a first start.
struct RequestPrefs {
    bool useCookies = false; ///< send stored cookies
    bool setCookies = true; ///< store received cookies
    bool useUserAgent = true;
    QByteArray userAgent;
    bool useLanguage = false;
    /// The chosen languages in the order of preference, each with its code in the first two bytes.
    QList<QByteArray> sprachAuswahl;
    /// The Accept-Language value that is sent: the result of `aktSprachen` when the languages were last applied or
    /// read.
    QByteArray languageHeader;
    bool useReferrer = true;
    bool dontWarnAboutCookiesAgain = false;

    /// The Accept-Language value for the chosen languages, with weights that fall linearly from 1. Empty without
    /// languages.
    [[nodiscard]] QByteArray aktSprachen() const;
    /// Leaves no language chosen or sent.
    void clearLanguages();

    /// The texts offered for the User-Agent line. The first is the default of the dialog and of the console.
    [[nodiscard]] static QList<QByteArray> readyUserAgents();
};

/// The request preferences as lines of settings and search files.
namespace twkEinstellungen {

void writeRequestPrefs(QIODevice& file, const RequestPrefs& prefs);
/// Applies one line; false for an unknown key. A language is added to those already chosen, up to 500.
bool readRequestPref(RequestPrefs& prefs, const QByteArray& key, const QByteArray& value);

} // namespace twkEinstellungen
