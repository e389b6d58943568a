// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "requests/CookieSource.h"

#include <QHash>

#include <memory>
#include <optional>

/// Copies a browser's cookies into the store, in small steps so that other events run in between. Cookies that the
/// store cannot hold are left out. After a failure, the cookies that were read before are still stored.
class CookieImport {
public:
    /// `store` must outlive the import.
    CookieImport(std::unique_ptr<CookieSource> source, CookieStore& store);

    /// The reader for a file that is a Firefox database or a "cookies.txt", told apart by its first bytes.
    [[nodiscard]] static std::unique_ptr<CookieSource> sourceFor(const QString& fileName);

    /// Reads one cookie, or stores the cookies of one host. False when there is nothing left to do.
    [[nodiscard]] bool step();

    /// How many cookies were stored.
    [[nodiscard]] qint64 count() const { return m_count; }
    [[nodiscard]] const std::optional<ImportError>& error() const { return m_error; }
    [[nodiscard]] const PassedOver& passedOver() const { return m_passedOver; }

private:
    void readNext();
    void gather(const ForeignCookie& foreign);
    void storeNext();

    std::unique_ptr<CookieSource> m_source; ///< null after the last cookie was read
    CookieStore& m_store;
    QHash<QByteArray, QList<Cookie>> m_cookies; ///< read but not stored yet, by host
    qsizetype m_bytes = 0; ///< size of these cookies
    QByteArrayList m_hosts; ///< of these cookies; the last host is stored first
    bool m_isStoring = false;
    qint64 m_count = 0;
    std::optional<ImportError> m_error;
    PassedOver m_passedOver;
};
