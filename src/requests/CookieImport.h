// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "requests/CookieSource.h"

#include <QHash>

#include <memory>
#include <optional>

/// How many cookies an import stored, and how many it did not.
struct ImportCount {
    qint64 stored = 0;
    qint64 neverSent = 0; ///< of those that were stored: no request matches their path
    qint64 secure = 0; ///< left out, because the browser sends them over https only
    qint64 expired = 0; ///< left out, because their time is over

    [[nodiscard]] qint64 leftOut() const { return secure + expired; }
    ImportCount& operator+=(const ImportCount& more);
};

/// Copies a browser's cookies into the store, in small steps so that other events run in between. Cookies that the
/// store cannot hold are left out. After a failure, the cookies that were read before are still stored.
class CookieImport {
public:
    /// Which cookies are taken. The store knows neither https nor an end of a cookie's time: what it holds is sent over
    /// plain connections, and for good.
    enum class Taking { Harmless, All };

    /// `store` must outlive the import.
    CookieImport(std::unique_ptr<CookieSource> source, CookieStore& store, Taking taking);

    /// The reader for a file that is a Firefox database or a "cookies.txt", told apart by its first bytes.
    [[nodiscard]] static std::unique_ptr<CookieSource> sourceFor(const QString& fileName);

    /// Reads one cookie, or stores the cookies of one host. False when there is nothing left to do.
    [[nodiscard]] bool step();

    [[nodiscard]] const ImportCount& count() const { return m_count; }
    [[nodiscard]] const std::optional<ImportError>& error() const { return m_error; }
    [[nodiscard]] const PassedOver& passedOver() const { return m_passedOver; }

private:
    void readNext();
    void gather(const ForeignCookie& foreign);
    [[nodiscard]] bool leavesOut(const ForeignCookie& foreign);
    void storeNext();

    std::unique_ptr<CookieSource> m_source; ///< null after the last cookie was read
    CookieStore& m_store;
    Taking m_taking;
    qint64 m_now; ///< in seconds since 1970
    QHash<QByteArray, QList<Cookie>> m_cookies; ///< read but not stored yet, by host
    qsizetype m_bytes = 0; ///< size of these cookies
    QByteArrayList m_hosts; ///< of these cookies; the last host is stored first
    bool m_isStoring = false;
    ImportCount m_count;
    std::optional<ImportError> m_error;
    PassedOver m_passedOver;
};
