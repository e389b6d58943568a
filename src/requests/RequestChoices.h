// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "requests/RequestPrefs.h"

/// The request preferences while a user edits them. The switches and the User-Agent text wait until they are applied;
/// the chosen languages change at once, but only the Accept-Language value that was applied is sent.
class RequestChoices {
public:
    /// `prefs` must outlive the choices.
    explicit RequestChoices(RequestPrefs& prefs);

    bool useCookies = false;
    bool setCookies = false;
    bool useUserAgent = false;
    bool useLanguage = false;
    bool useReferrer = false;
    /// The first ready text until the user chooses another; never that of the preferences.
    QByteArray userAgent;

    /// Takes the switches from the preferences.
    void begin();
    /// Whether the user is to be warned before the choices are applied.
    [[nodiscard]] bool needsCookieWarning() const { return useCookies && !m_prefs.dontWarnAboutCookiesAgain; }
    void dontWarnAgain() { m_prefs.dontWarnAboutCookiesAgain = true; }
    void apply();

    [[nodiscard]] const QList<QByteArray>& languages() const { return m_prefs.sprachAuswahl; }
    /// The Accept-Language value of the languages.
    [[nodiscard]] QByteArray languageHeader() const { return m_prefs.aktSprachen(); }
    /// Languages may be chosen more than once.
    void addLanguages(const QList<QByteArray>& entries);
    void removeLanguage(qsizetype index);
    /// Changes places with the neighbour above (`by` = -1) or below (1). The entry's new index, which is the old one
    /// where there is no neighbour.
    qsizetype moveLanguage(qsizetype index, int by);

private:
    RequestPrefs& m_prefs;
};
