// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "requests/RequestPrefs.h"

/// The request preferences while the user edits them. Switches and User-Agent take effect when they are applied. The
/// list of languages changes at once, but the Accept-Language value that is sent changes only when it is applied.
///
/// The preferences in force may come from a search file. They become the user's own when the user applies them; a
/// change of the list is the user's own at once unless the list comes from a file.
class RequestChoices {
public:
    /// `prefs` are those in force, `own` those of the user. Both must outlive the choices.
    RequestChoices(RequestPrefs& prefs, RequestPrefs& own);

    bool useCookies = false;
    bool setCookies = false;
    bool useUserAgent = false;
    bool useLanguage = false;
    bool useReferrer = false;
    /// The first ready text until the user chooses another one. The text of the preferences is never shown.
    QByteArray userAgent;

    /// Copies the switches from the preferences.
    void begin();
    /// Whether the user must be warned before the choices are applied.
    [[nodiscard]] bool needsCookieWarning() const { return useCookies && !m_prefs.dontWarnAboutCookiesAgain; }
    void dontWarnAgain();
    void apply();

    [[nodiscard]] const QList<QByteArray>& languages() const { return m_prefs.sprachAuswahl; }
    /// The Accept-Language value of `languages`.
    [[nodiscard]] QByteArray languageHeader() const { return m_prefs.aktSprachen(); }
    /// A language may be chosen more than once.
    void addLanguages(const QList<QByteArray>& entries);
    void removeLanguage(qsizetype index);
    /// Swaps an entry with its neighbour above (`by` = -1) or below (1). Returns the entry's new index, which is the
    /// old one when there is no neighbour.
    qsizetype moveLanguage(qsizetype index, int by);

private:
    void setLanguages(const QList<QByteArray>& languages);

    RequestPrefs& m_prefs;
    RequestPrefs& m_own;
};
