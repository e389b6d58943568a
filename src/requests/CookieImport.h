// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"
#include "requests/CookieSource.h"

#include <QHash>

#include <memory>
#include <optional>

class LanguageTable;

/// Copies a browser's cookies into the store, in steps with room for other events between them. Cookies that the store
/// cannot hold are passed over. After a failure, whatever else could be had is stored.
class CookieImport {
public:
    /// `store` must outlive the import.
    CookieImport(std::unique_ptr<CookieSource> source, const CookieStore& store);

    /// Reads one cookie, or stores those of one host; false when there is nothing left to do.
    [[nodiscard]] bool step();

    /// How many cookies were taken over.
    [[nodiscard]] qint64 count() const { return m_count; }
    [[nodiscard]] const std::optional<ImportError>& error() const { return m_error; }
    [[nodiscard]] const PassedOver& passedOver() const { return m_passedOver; }

private:
    void readNext();
    void gather(const ForeignCookie& foreign);
    void storeNext();

    std::unique_ptr<CookieSource> m_source; ///< none when all is read
    const CookieStore& m_store;
    /// Those that are not stored yet, by host, and how many bytes they are.
    QHash<QByteArray, QList<Cookie>> m_cookies;
    qsizetype m_bytes = 0;
    QByteArrayList m_hosts; ///< whose cookies wait, the last first to be stored
    bool m_isStoring = false;
    qint64 m_count = 0;
    std::optional<ImportError> m_error;
    PassedOver m_passedOver;
};

namespace cookieImport {

/// How many cookies were taken over, in words.
[[nodiscard]] QString countText(qint64 count, const LanguageTable& language);
/// What went wrong in an import: what failed, and which lines were passed over. Mostly nothing.
[[nodiscard]] QStringList complaints(const CookieImport& import, const LanguageTable& language);
/// What is said at the end of an import: the count, and what went wrong.
[[nodiscard]] Messages::Box report(const CookieImport& import, const LanguageTable& language);

/// The reader for a file that is a Firefox database or a "cookies.txt", told apart by its beginning.
[[nodiscard]] std::unique_ptr<CookieSource> sourceFor(const QString& fileName);

} // namespace cookieImport
